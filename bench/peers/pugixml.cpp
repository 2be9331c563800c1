#include <pugixml.hpp>

#include <memory>

#include "dom_loops.h"
#include "jobs.h"

namespace {

template <unsigned kFlags>
struct PugiXml {
  using Tree = std::unique_ptr<pugi::xml_document>;
  using Node = pugi::xml_node;

  static Tree load(const char* path) {
    auto document = std::make_unique<pugi::xml_document>();
    document->load_file(path, kFlags);
    return document;
  }
  static bool save(const Tree& tree, const char* path) { return tree->save_file(path); }
  static Tree clone(const Tree& tree) {
    auto copy = std::make_unique<pugi::xml_document>();
    copy->reset(*tree);
    return copy;
  }
  static Tree make(const char* tag) {
    auto document = std::make_unique<pugi::xml_document>();
    document->append_child(tag);
    return document;
  }

  static Node root(const Tree& tree) { return tree->document_element(); }
  static Node first(Node node) { return element(node.first_child()); }
  static Node next(Node node) { return element(node.next_sibling()); }
  static Node child(Node node, const char* tag) { return node.child(tag); }
  static const char* tag(Node node) { return node.name(); }
  static const char* attribute(Node node, const char* name) { return node.attribute(name).value(); }
  static int int_attribute(Node node, const char* name, int missing) {
    return node.attribute(name).as_int(missing);
  }
  static void set_int(Tree&, Node node, const char* name, int value) {
    pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute) attribute = node.append_attribute(name);
    attribute.set_value(value);
  }
  static const char* text(Node node) { return node.child_value(); }
  static void set_text(Tree&, Node node, const std::string& text) { node.text().set(text.c_str()); }
  static void set_xml(Tree& tree, const std::string& xml) {
    tree->load_buffer(xml.data(), xml.size(), kFlags);
  }
  static Node add(Tree&, Node parent, const char* tag) { return parent.append_child(tag); }
  static void remove(Tree&, Node parent, Node child) { parent.remove_child(child); }
  static void move_to_end(Tree&, Node parent, Node child) { parent.append_move(child); }

 private:
  // Where texts are kept in the elements, every node is an element.
  static Node element(Node node) {
    if constexpr ((kFlags & pugi::parse_embed_pcdata) == 0) {
      while (node && node.type() != pugi::node_element) node = node.next_sibling();
    }
    return node;
  }
};

constexpr unsigned kEmbedded = pugi::parse_default | pugi::parse_embed_pcdata;
const Enrol enrolled(2, Jobs<DomLoops<PugiXml<pugi::parse_default>>>::library("pugixml"));
const Enrol embedded_enrolled(3, Jobs<DomLoops<PugiXml<kEmbedded>>>::library("pugixml embedded"));

}  // namespace
