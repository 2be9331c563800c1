#include <rapidxml.hpp>
#include <rapidxml_print.hpp>
#include <rapidxml_utils.hpp>

#include <charconv>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>

#include "dom_loops.h"
#include "jobs.h"

namespace {

struct RapidXml {
  struct Document {
    std::unique_ptr<rapidxml::file<>> text;  // the document points into it
    rapidxml::xml_document<> nodes;
  };
  using Tree = std::unique_ptr<Document>;
  using Node = rapidxml::xml_node<>*;

  static Tree load(const char* path) {
    auto document = std::make_unique<Document>();
    document->text = std::make_unique<rapidxml::file<>>(path);
    document->nodes.parse<rapidxml::parse_no_data_nodes>(document->text->data());
    return document;
  }
  static bool save(const Tree& tree, const char* path) {
    std::string text;
    rapidxml::print(std::back_inserter(text), tree->nodes);
    std::ofstream file(path, std::ios::binary);
    file << text << std::flush;
    return file.good();
  }
  // The library's own clone_node leaves names and values in the original's memory.
  static Tree clone(const Tree& tree) {
    auto copy = std::make_unique<Document>();
    copy->nodes.append_node(copy_of(copy->nodes, root(tree)));
    return copy;
  }
  static Tree make(const char* tag) {
    auto document = std::make_unique<Document>();
    add(document, &document->nodes, tag);
    return document;
  }

  static Node root(const Tree& tree) { return tree->nodes.first_node(); }
  static Node first(Node node) { return node->first_node(); }
  static Node next(Node node) { return node->next_sibling(); }
  static Node child(Node node, const char* tag) { return node->first_node(tag); }
  static const char* tag(Node node) { return node->name(); }
  static const char* attribute(Node node, const char* name) {
    const rapidxml::xml_attribute<>* const found = node->first_attribute(name);
    return found != nullptr ? found->value() : "";
  }
  static int int_attribute(Node node, const char* name, int missing) {
    if (const rapidxml::xml_attribute<>* const found = node->first_attribute(name)) {
      std::from_chars(found->value(), found->value() + found->value_size(), missing);
    }
    return missing;
  }
  static void set_int(Tree& tree, Node node, const char* name, int value) {
    char digits[12];
    char* const end = std::to_chars(digits, digits + sizeof digits - 1, value).ptr;
    *end = '\0';
    const auto length = static_cast<std::size_t>(end - digits);
    const char* const text = tree->nodes.allocate_string(digits, length + 1);
    if (rapidxml::xml_attribute<>* const found = node->first_attribute(name)) {
      found->value(text, length);
    } else {
      node->append_attribute(tree->nodes.allocate_attribute(name, text, 0, length));
    }
  }
  static const char* text(Node node) { return node->value(); }
  static void set_text(Tree& tree, Node node, const std::string& text) {
    node->value(tree->nodes.allocate_string(text.c_str(), text.size() + 1), text.size());
  }
  static void set_xml(Tree& tree, const std::string& xml) {
    tree->nodes.clear();
    char* const text = tree->nodes.allocate_string(xml.c_str(), xml.size() + 1);
    tree->nodes.parse<rapidxml::parse_no_data_nodes>(text);
  }
  static Node add(Tree& tree, Node parent, const char* tag) {
    auto* const made = tree->nodes.allocate_node(rapidxml::node_element, tag);
    parent->append_node(made);
    return made;
  }
  static void remove(Tree&, Node parent, Node child) { parent->remove_node(child); }
  static void move_to_end(Tree&, Node parent, Node child) {
    parent->remove_node(child);
    parent->append_node(child);
  }

 private:
  static char* copy_of(rapidxml::xml_document<>& target, const char* text, std::size_t length) {
    return target.allocate_string(text, length + 1);
  }
  static Node copy_of(rapidxml::xml_document<>& target, Node node) {
    auto* const copy = target.allocate_node(node->type());
    copy->name(copy_of(target, node->name(), node->name_size()), node->name_size());
    copy->value(copy_of(target, node->value(), node->value_size()), node->value_size());
    for (const rapidxml::xml_attribute<>* at = node->first_attribute(); at != nullptr;
         at = at->next_attribute()) {
      copy->append_attribute(target.allocate_attribute(copy_of(target, at->name(), at->name_size()),
                                                       copy_of(target, at->value(), at->value_size()),
                                                       at->name_size(), at->value_size()));
    }
    for (Node child = first(node); child != nullptr; child = next(child))
      copy->append_node(copy_of(target, child));
    return copy;
  }
};

const Enrol enrolled(4, Jobs<DomLoops<RapidXml>>::library("RapidXML"));

}  // namespace
