// A plain forest to compare the host's trees with: every edit is done the simplest way, at any cost.
#pragma once

#include <algorithm>
#include <deque>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace model {

struct Node {
  std::string tag, text = {};
  int id = -1;
  std::vector<std::pair<std::string, std::string>> attributes = {};  // in the order of their first writing
  std::vector<Node*> children = {};
  Node* parent = nullptr;
  bool alive = true;
};

inline bool valid(const Node* node) { return node != nullptr && node->alive; }

inline const Node* root_of(const Node* at) { return at->parent == nullptr ? at : root_of(at->parent); }

inline std::size_t size_of(const Node* node) {
  std::size_t size = 1;
  for (const Node* child : node->children) size += size_of(child);
  return size;
}

inline Node* child_of(const Node* node, std::ptrdiff_t at) {
  const bool within = node != nullptr && at >= 0 && at < std::ssize(node->children);
  return within ? node->children[static_cast<std::size_t>(at)] : nullptr;
}

inline std::string xml_of(const Node* node) {
  std::string xml = "<" + node->tag;
  if (node->id != -1) xml += " _NodeID=\"" + std::to_string(node->id) + "\"";
  for (const auto& [name, value] : node->attributes)
    xml.append(" ").append(name).append("=\"").append(value).append("\"");
  if (node->text.empty() && node->children.empty()) return xml + "/>";
  xml += ">" + node->text;
  for (const Node* child : node->children) xml += xml_of(child);
  return xml + "</" + node->tag + ">";
}

// The edits give what the host's should: false, with nothing changed, on a null or dead node.
class Forest {
 public:
  Node* create(const std::string& tag) { return &nodes_.emplace_back(Node{tag}); }

  Node* add(Node* parent, const std::string& tag, int id, const std::string& text) {
    if (!valid(parent)) return nullptr;
    return put(parent, std::ssize(parent->children), &nodes_.emplace_back(Node{tag, text, id}));
  }
  bool insert(Node* parent, Node* next, const std::string& tag, int id) {
    if (!valid(parent) || !valid(next) || next->parent != parent) return false;
    const auto& row = parent->children;
    return put(parent, std::find(row.begin(), row.end(), next) - row.begin(),
               &nodes_.emplace_back(Node{tag, "", id})) != nullptr;
  }
  bool add_copy(Node* parent, const Node* source) {
    Node* const made = valid(parent) ? clone(source) : nullptr;
    return made != nullptr && put(parent, std::ssize(parent->children), made) != nullptr;
  }
  Node* clone(const Node* source) {
    if (!valid(source)) return nullptr;
    Node* const made = &nodes_.emplace_back(Node{source->tag, source->text, source->id, source->attributes});
    for (const Node* child : source->children) put(made, std::ssize(made->children), clone(child));
    return made;
  }

  static bool remove(Node* node) {
    if (!trim(node, 0)) return false;
    if (node->parent != nullptr) std::erase(node->parent->children, node);
    return node->alive = false, true;
  }
  static bool remove_child(const Node* parent, Node* child) {
    return valid(parent) && valid(child) && child->parent == parent && remove(child);
  }
  static bool trim(Node* node, int count) {
    if (!valid(node) || count < 0) return false;
    while (std::ssize(node->children) > count) remove(node->children.back());
    return true;
  }
  static bool reset(Node* node) { return trim(node, 0) && (node->text.clear(), true); }

  bool replace(Node* target, const Node* source, bool keep_tag) {
    Node* const content = valid(target) ? clone(source) : nullptr;
    if (content != nullptr && keep_tag) content->tag = target->tag;
    return content != nullptr && trim(target, 0) && become(target, *content);
  }
  // The contents move, not the nodes.
  static bool arrange(Node* node, const std::vector<int>& order) {
    if (!valid(node) || order.size() != node->children.size()) return false;
    std::vector<int> places(order.size());
    std::iota(places.begin(), places.end(), 0);
    if (!std::is_permutation(order.begin(), order.end(), places.begin())) return false;
    std::vector<Node> former;
    for (const Node* child : node->children) former.push_back(*child);
    for (const int at : places) {
      const auto i = static_cast<std::size_t>(at);
      become(node->children[i], former[static_cast<std::size_t>(order[i])]);
    }
    return true;
  }

  static bool set(Node* node, const std::string& name, const std::string& value) {
    if (!valid(node)) return false;
    for (auto& [known, former] : node->attributes)
      if (known == name) return former = value, true;
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
  static Node* put(Node* parent, std::ptrdiff_t index, Node* child) {
    child->parent = parent;
    return *parent->children.insert(parent->children.begin() + index, child);
  }
  static bool become(Node* node, Node content) {
    content.parent = node->parent;
    *node = std::move(content);
    for (Node* child : node->children) child->parent = node;
    return true;
  }

  std::deque<Node> nodes_;  // removed ones too, which say that they are dead
};

}  // namespace model
