#include <libxml/parser.h>
#include <libxml/tree.h>

#include <charconv>
#include <memory>

#include "dom_loops.h"
#include "jobs.h"

namespace {

struct FreeDocument {
  void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

struct LibXml2 {
  using Tree = std::unique_ptr<xmlDoc, FreeDocument>;
  using Node = xmlNode*;

  static Tree load(const char* path) {
    return Tree(xmlReadFile(path, nullptr, XML_PARSE_NOBLANKS | XML_PARSE_HUGE));
  }
  static bool save(const Tree& tree, const char* path) {
    return xmlSaveFormatFileEnc(path, tree.get(), "UTF-8", 1) >= 0;
  }
  static Tree clone(const Tree& tree) { return Tree(xmlCopyDoc(tree.get(), 1)); }
  static Tree make(const char* tag) {
    Tree tree(xmlNewDoc(bytes("1.0")));
    xmlDocSetRootElement(tree.get(), xmlNewNode(nullptr, bytes(tag)));
    return tree;
  }

  static Node root(const Tree& tree) { return xmlDocGetRootElement(tree.get()); }
  static Node first(Node node) { return xmlFirstElementChild(node); }
  static Node next(Node node) { return xmlNextElementSibling(node); }
  static Node child(Node node, const char* tag) {
    Node at = first(node);
    while (at != nullptr && xmlStrEqual(at->name, bytes(tag)) == 0) at = next(at);
    return at;
  }
  static const char* tag(Node node) { return chars(node->name); }
  static const char* attribute(Node node, const char* name) {
    const xmlAttr* const found = xmlHasProp(node, bytes(name));
    return found != nullptr ? content(found->children) : "";
  }
  static int int_attribute(Node node, const char* name, int missing) {
    const std::string_view value = attribute(node, name);
    std::from_chars(value.data(), value.data() + value.size(), missing);
    return missing;
  }
  static void set_int(Tree&, Node node, const char* name, int value) {
    char digits[12];
    *std::to_chars(digits, digits + sizeof digits - 1, value).ptr = '\0';
    xmlSetProp(node, bytes(name), bytes(digits));
  }
  static const char* text(Node node) { return content(node->children); }
  // xmlNodeSetContent would read the text as XML.
  static void set_text(Tree&, Node node, const std::string& text) {
    xmlNodeSetContent(node, nullptr);
    xmlNodeAddContentLen(node, bytes(text.c_str()), static_cast<int>(text.size()));
  }
  static void set_xml(Tree& tree, const std::string& xml) {
    tree.reset(xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr, XML_PARSE_NOBLANKS));
  }
  static Node add(Tree&, Node parent, const char* tag) {
    return xmlNewChild(parent, nullptr, bytes(tag), nullptr);
  }
  static void remove(Tree&, Node, Node child) {
    xmlUnlinkNode(child);
    xmlFreeNode(child);
  }
  static void move_to_end(Tree&, Node parent, Node child) {
    xmlUnlinkNode(child);
    xmlAddChild(parent, child);
  }

 private:
  static const xmlChar* bytes(const char* text) { return reinterpret_cast<const xmlChar*>(text); }
  static const char* chars(const xmlChar* text) { return reinterpret_cast<const char*>(text); }
  static const char* content(const xmlNode* text) {
    return text != nullptr && text->type == XML_TEXT_NODE ? chars(text->content) : "";
  }
};

const Enrol enrolled(6, Jobs<DomLoops<LibXml2>>::library("libxml2"));

}  // namespace
