#include <tinyxml2.h>

#include <memory>

#include "dom_loops.h"
#include "jobs.h"

namespace {

struct TinyXml2 {
  using Tree = std::unique_ptr<tinyxml2::XMLDocument>;
  using Node = tinyxml2::XMLElement*;

  static Tree load(const char* path) {
    auto document = std::make_unique<tinyxml2::XMLDocument>();
    document->LoadFile(path);
    return document;
  }
  static bool save(const Tree& tree, const char* path) {
    return tree->SaveFile(path) == tinyxml2::XML_SUCCESS;
  }
  static Tree clone(const Tree& tree) {
    auto copy = std::make_unique<tinyxml2::XMLDocument>();
    tree->DeepCopy(copy.get());
    return copy;
  }
  static Tree make(const char* tag) {
    auto document = std::make_unique<tinyxml2::XMLDocument>();
    document->InsertEndChild(document->NewElement(tag));
    return document;
  }

  static Node root(const Tree& tree) { return tree->RootElement(); }
  static Node first(Node node) { return node->FirstChildElement(); }
  static Node next(Node node) { return node->NextSiblingElement(); }
  static Node child(Node node, const char* tag) { return node->FirstChildElement(tag); }
  static const char* tag(Node node) { return node->Name(); }
  static const char* attribute(Node node, const char* name) { return or_empty(node->Attribute(name)); }
  static int int_attribute(Node node, const char* name, int missing) {
    return node->IntAttribute(name, missing);
  }
  static void set_int(Tree&, Node node, const char* name, int value) { node->SetAttribute(name, value); }
  static const char* text(Node node) { return or_empty(node->GetText()); }
  static void set_text(Tree&, Node node, const std::string& text) { node->SetText(text.c_str()); }
  static void set_xml(Tree& tree, const std::string& xml) { tree->Parse(xml.data(), xml.size()); }
  static Node add(Tree& tree, Node parent, const char* tag) {
    auto* const made = tree->NewElement(tag);
    parent->InsertEndChild(made);
    return made;
  }
  static void remove(Tree&, Node parent, Node child) { parent->DeleteChild(child); }
  static void move_to_end(Tree&, Node parent, Node child) { parent->InsertEndChild(child); }

 private:
  static const char* or_empty(const char* text) { return text != nullptr ? text : ""; }
};

const Enrol enrolled(5, Jobs<DomLoops<TinyXml2>>::library("TinyXML2"));

}  // namespace
