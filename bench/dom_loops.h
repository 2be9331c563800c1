// The loops that programmers write over a tree library: plain and recursive.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

/// The jobs as loops over `Dom`, which gives the operations of a library common names. Each file in peers/
/// has such a `Dom`.
template <class Dom>
struct DomLoops : Dom {
  using Tree = typename Dom::Tree;
  using Node = typename Dom::Node;
  using Ids = std::vector<int>;
  using Values = std::vector<std::string>;

  static const Ids& make_ids(const std::vector<int>& ids) { return ids; }
  static const Values& make_values(const std::vector<std::string>& values) { return values; }

  static std::size_t walk(const Tree& tree) { return count(Dom::root(tree)); }

  static void harvest(const Tree& tree, Ids& ids, Values& values) {
    harvest_below(Dom::root(tree), ids, values);
  }

  static std::size_t apply(Tree& tree, const Ids& ids, const Values& values) {
    std::unordered_map<int, std::size_t> index;
    index.reserve(ids.size());
    for (std::size_t i = 0; i < ids.size(); ++i) index.emplace(ids[i], i);
    return apply_below(tree, Dom::root(tree), index, values);
  }

  /// Copies the texts of all leaves to the leaves with the same IDs. Gives their number.
  static std::size_t copy(const Tree& source, Tree& target) {
    std::unordered_map<int, Node> leaves;
    index_below(Dom::root(source), leaves);
    return copy_below(target, Dom::root(target), leaves);
  }

  static bool find(const Tree& tree, int id) { return static_cast<bool>(find_below(Dom::root(tree), id)); }

  /// Numbers all nodes below the root.
  static int number_all(Tree& tree, const char* name) { return number_below(tree, Dom::root(tree), name, 0); }

  static std::size_t remove_every_second_leaf(Tree& tree) {
    std::size_t leaves = 0;
    remove_below(tree, Dom::root(tree), leaves);
    return leaves / 2;
  }

  static void sort_children(Tree& tree) {
    const Node parent = Dom::root(tree);
    std::vector<std::pair<int, Node>> children;
    for (Node child = Dom::first(parent); child; child = Dom::next(child)) {
      children.emplace_back(Dom::int_attribute(child, "Order", 0), child);
    }
    std::stable_sort(children.begin(), children.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [order, child] : children) Dom::move_to_end(tree, parent, child);
  }

  static Node check_get(Tree& tree, const std::string (&tags)[3]) {
    Node at = Dom::root(tree);
    for (const std::string& tag : tags) {
      const Node child = Dom::child(at, tag.c_str());
      at = child ? child : Dom::add(tree, at, tag.c_str());
    }
    return at;
  }

 private:
  static std::size_t count(Node node) {
    std::size_t nodes = 1;
    for (Node child = Dom::first(node); child; child = Dom::next(child)) nodes += count(child);
    return nodes;
  }

  static void harvest_below(Node parent, Ids& ids, Values& values) {
    for (Node node = Dom::first(parent); node; node = Dom::next(node)) {
      if (Dom::first(node)) {
        harvest_below(node, ids, values);
      } else {
        ids.push_back(Dom::int_attribute(node, "DataID", -1));
        values.emplace_back(Dom::text(node));
      }
    }
  }

  static std::size_t apply_below(Tree& tree, Node parent, const std::unordered_map<int, std::size_t>& index,
                                 const Values& values) {
    std::size_t applied = 0;
    for (Node node = Dom::first(parent); node; node = Dom::next(node)) {
      if (Dom::first(node)) {
        applied += apply_below(tree, node, index, values);
      } else if (const auto found = index.find(Dom::int_attribute(node, "DataID", -1));
                 found != index.end()) {
        Dom::set_text(tree, node, values[found->second]);
        ++applied;
      }
    }
    return applied;
  }

  static void index_below(Node parent, std::unordered_map<int, Node>& leaves) {
    for (Node node = Dom::first(parent); node; node = Dom::next(node)) {
      if (Dom::first(node)) {
        index_below(node, leaves);
      } else {
        leaves.emplace(Dom::int_attribute(node, "DataID", -1), node);
      }
    }
  }

  static std::size_t copy_below(Tree& target, Node parent, const std::unordered_map<int, Node>& leaves) {
    std::size_t copied = 0;
    for (Node node = Dom::first(parent); node; node = Dom::next(node)) {
      if (Dom::first(node)) {
        copied += copy_below(target, node, leaves);
      } else if (const auto found = leaves.find(Dom::int_attribute(node, "DataID", -1));
                 found != leaves.end()) {
        Dom::set_text(target, node, Dom::text(found->second));
        ++copied;
      }
    }
    return copied;
  }

  static Node find_below(Node parent, int id) {
    for (Node node = Dom::first(parent); node; node = Dom::next(node)) {
      if (Dom::int_attribute(node, "DataID", -1) == id) return node;
      if (const Node found = find_below(node, id)) return found;
    }
    return Node();
  }

  static int number_below(Tree& tree, Node parent, const char* name, int number) {
    for (Node node = Dom::first(parent); node; node = Dom::next(node)) {
      Dom::set_int(tree, node, name, ++number);
      number = number_below(tree, node, name, number);
    }
    return number;
  }

  static void remove_below(Tree& tree, Node parent, std::size_t& leaves) {
    for (Node next = Dom::first(parent); next;) {
      const Node node = next;
      next = Dom::next(node);
      if (Dom::first(node)) {
        remove_below(tree, node, leaves);
      } else if (++leaves % 2 == 0) {
        Dom::remove(tree, parent, node);
      }
    }
  }
};
