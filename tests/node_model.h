// A plain forest to hold the host's trees against: every edit goes the shortest way, without a thought for
// speed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace model {

struct Node {
  std::string tag;
  int id = -1;
  std::string text = {};
  std::vector<std::pair<std::string, std::string>> attributes = {};  // in the order of their first writing
  std::vector<Node*> children = {};
  Node* parent = nullptr;
  bool alive = true;
};

inline bool valid(const Node* node) { return node != nullptr && node->alive; }

inline Node* root_of(Node* node) {
  while (node->parent != nullptr) node = node->parent;
  return node;
}

inline std::size_t depth_of(const Node* node) { return node == nullptr ? 0 : 1 + depth_of(node->parent); }

inline std::size_t size_of(const Node* node) {
  std::size_t size = 1;
  for (const Node* child : node->children) size += size_of(child);
  return size;
}

inline std::ptrdiff_t index_of(const Node* node) {
  const std::vector<Node*>& row = node->parent->children;
  return std::find(row.begin(), row.end(), node) - row.begin();
}

inline std::string xml_of(const Node* node) {
  std::string xml = "<" + node->tag;
  for (const auto& [name, value] : node->attributes)
    xml.append(" ").append(name).append("=\"").append(value).append("\"");
  if (node->text.empty() && node->children.empty()) return xml + "/>";
  xml += ">" + node->text;
  for (const Node* child : node->children) xml += xml_of(child);
  return xml + "</" + node->tag + ">";
}

// The edits give what the host's should: false, and nothing changed, on a node that is none or dead.
class Forest {
 public:
  Node* create(const std::string& tag, int id = -1) {
    return &nodes_.emplace_back(Node{.tag = tag, .id = id});
  }

  Node* add(Node* parent, const std::string& tag, int id) {
    return valid(parent) ? put(parent, parent->children.size(), create(tag, id)) : nullptr;
  }
  bool insert(Node* parent, Node* next, const std::string& tag, int id) {
    if (!valid(parent) || !valid(next) || next->parent != parent) return false;
    return put(parent, static_cast<std::size_t>(index_of(next)), create(tag, id)) != nullptr;
  }
  bool add_copy(Node* parent, const Node* source) {
    if (!valid(parent) || !valid(source)) return false;
    return put(parent, parent->children.size(), copy(source)) != nullptr;
  }
  Node* clone(const Node* source) { return valid(source) ? copy(source) : nullptr; }

  bool remove(Node* node) {
    if (!valid(node)) return false;
    if (node->parent != nullptr)
      node->parent->children.erase(node->parent->children.begin() + index_of(node));
    kill(node);
    return true;
  }
  bool remove_child(Node* parent, Node* child) {
    return valid(parent) && valid(child) && child->parent == parent && remove(child);
  }
  bool trim(Node* node, int count) {
    if (!valid(node) || count < 0) return false;
    while (node->children.size() > static_cast<std::size_t>(count)) remove(node->children.back());
    return true;
  }
  bool reset(Node* node) {
    if (!trim(node, 0)) return false;
    node->text.clear();
    return true;
  }

  bool replace(Node* target, const Node* source, bool keep_tag) {
    if (!valid(target) || !valid(source)) return false;
    Node* const content = copy(source);
    if (keep_tag) content->tag = target->tag;
    trim(target, 0);
    swap_content(target, content);
    return true;
  }
  static bool arrange(Node* node, std::vector<int> order) {
    if (!valid(node) || order.size() != node->children.size()) return false;
    std::vector<int> sorted(order);
    std::sort(sorted.begin(), sorted.end());
    for (std::size_t i = 0; i < sorted.size(); ++i) {
      if (sorted[i] != static_cast<int>(i)) return false;
    }
    for (std::size_t i = 0; i < order.size(); ++i) {
      const auto from = static_cast<std::size_t>(order[i]);
      if (from == i) continue;
      swap_content(node->children[i], node->children[from]);
      const auto waiting = order.begin() + static_cast<std::ptrdiff_t>(i) + 1;
      *std::find(waiting, order.end(), static_cast<int>(i)) = order[i];
    }
    return true;
  }

  static bool set(Node* node, const std::string& name, const std::string& value) {
    if (!valid(node)) return false;
    for (auto& [known, former] : node->attributes) {
      if (known == name) return former = value, true;
    }
    node->attributes.emplace_back(name, value);
    return true;
  }
  static bool unset(Node* node, const std::string& name) {
    return valid(node) &&
           std::erase_if(node->attributes, [&](const auto& it) { return it.first == name; }) != 0;
  }
  static bool copy_attributes(Node* node, const Node* source) {
    if (!valid(node) || !valid(source)) return false;
    for (const auto& [name, value] : source->attributes) set(node, name, value);
    return true;
  }

 private:
  static Node* put(Node* parent, std::size_t index, Node* child) {
    child->parent = parent;
    parent->children.insert(parent->children.begin() + static_cast<std::ptrdiff_t>(index), child);
    return child;
  }
  Node* copy(const Node* source) {
    Node* const made = create(source->tag, source->id);
    made->text = source->text;
    made->attributes = source->attributes;
    for (const Node* child : source->children) put(made, made->children.size(), copy(child));
    return made;
  }
  static void kill(Node* node) {
    node->alive = false;
    for (Node* child : node->children) kill(child);
  }
  static void swap_content(Node* a, Node* b) {
    std::swap(a->parent, b->parent);
    std::swap(*a, *b);
    for (Node* side : {a, b}) {
      for (Node* child : side->children) child->parent = side;
    }
  }

  std::deque<Node> nodes_;  // none is given back: a removed node goes on saying that it is dead
};

}  // namespace model
