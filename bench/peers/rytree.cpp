// The library that is measured: its exports, and loops over the node class where no export does the job.
#include <rytree_Utils.h>
#include <rytree_Utils/arrange.h>

#include <stdexcept>

#include "jobs.h"

namespace {

struct Rytree {
  using Tree = RYXmlWrapperBase;
  using Ids = CArray<int, int>;
  using Values = CStringArray;
  struct Node : RYXmlWrapperBase {
    Node() = default;
    explicit Node(const RYXmlWrapperBase& other) : RYXmlWrapperBase(other) {}
    explicit operator bool() const { return IsNodeValid() != 0; }
  };

  static Ids make_ids(const std::vector<int>& ids) {
    Ids made;
    for (const int id : ids) made.Add(id);
    return made;
  }
  static Values make_values(const std::vector<std::string>& values) {
    Values made;
    for (const std::string& value : values) made.Add(CString(std::string_view(value)));
    return made;
  }

  // ---- Whole trees.

  static Tree load(const char* path) {
    Tree tree;
    if (tree.load(path, 0) == 0) throw std::runtime_error("a tree cannot be loaded");
    return tree;
  }
  static bool save(const Tree& tree, const char* path) { return tree.Save(path) != 0; }
  static Tree clone(const Tree& tree) {
    Tree copy;
    tree.Clone(copy, 1);
    return copy;
  }
  static Tree make(const char* tag) {
    Tree tree;
    tree.CreateNew(0, tag);
    return tree;
  }

  // ---- Jobs.

  static std::size_t walk(const RYXmlWrapperBase& node) {
    std::size_t nodes = 0;
    for (RYXmlWrapperBase at(node); at.IsNodeValid() != 0; at.NextBelow(at, node)) ++nodes;
    return nodes;
  }

  static void harvest(Tree& tree, Ids& ids, Values& values) {
    vctree_get_values_with_ids(&tree, &ids, &values, 1, 0, 0, nullptr, 0, nullptr);
  }

  static std::size_t apply(Tree& tree, Ids& ids, Values& values) {
    return static_cast<std::size_t>(
        vctree_set_values_by_ids(&tree, &ids, &values, 0, nullptr, 0, nullptr, nullptr));
  }

  static std::size_t copy(const Tree& source, Tree& target) {
    Tree from = source;
    return static_cast<std::size_t>(
        vctree_copy_values_by_id(&from, &target, 0, nullptr, nullptr, 0, nullptr, 0, 0));
  }

  static bool find(Tree& tree, int id) {
    RYXmlWrapperBase found;
    return rytree_find_node(&tree, &found, "DataID", id, true, 0, 0) != 0;
  }

  static int number_all(Tree& tree, const char* name) { return number_below(tree, RYPropertyName(name)); }

  static std::size_t remove_every_second_leaf(Tree& tree) {
    std::size_t leaves = 0;
    RYXmlWrapperBase at;
    RYXmlWrapperBase removed;
    for (tree.FirstChild(at); at.IsNodeValid() != 0;) {
      const bool remove = at.HasChildren(0) == 0 && ++leaves % 2 == 0;
      if (remove) removed = at;
      at.NextBelow(at, tree);
      if (remove) removed.RemoveNode();
    }
    return leaves / 2;
  }

  static void sort_children(Tree& tree) { rytree_sort_children_by_int_attribute(&tree, "Order", 1); }

  static Node check_get(Tree& tree, const std::string (&tags)[3]) {
    Node found;
    tmxfu_tree_check_get_node(found, tree, tags[0].c_str(), tags[1].c_str(), tags[2].c_str(), nullptr);
    return found;
  }

  // ---- Single nodes.

  static Node root(const Tree& tree) { return Node(tree); }
  static Node first(const Node& node) {
    Node child;
    node.FirstChild(child);
    return child;
  }
  static Node next(const Node& node) {
    Node sibling;
    node.NextSibling(sibling);
    return sibling;
  }
  static std::string tag(const Node& node) {
    CString tag;
    node.GetTagName(tag);
    return std::string(tag);
  }
  static std::string attribute(const Node& node, const char* name) {
    CString value;
    node.GetPropertyValue(name, value);
    return std::string(value);
  }
  static int int_attribute(const Node& node, const char* name, int missing) {
    node.GetPropertyValue(name, missing);
    return missing;
  }
  static void set_int(Tree&, Node& node, const char* name, int value) { node.SetPropertyValue(name, value); }
  // Good until the next call: a caller who reads many texts uses one string for all of them.
  static const char* text(const Node& node) {
    static CString text;
    node.GetNodeStringWithBlobInfo(text, 0);
    return text;
  }
  static void set_text(Tree&, Node& node, const std::string& text) { node.CheckSetValue(0, text.c_str(), 0); }
  static void set_xml(Tree& tree, const std::string& xml) { static_cast<void>(tree.SetXmlText(xml.c_str())); }
  static Node add(Tree&, Node parent, const char* tag) {
    Node child;
    parent.AddNode(child, tag, -1);
    return child;
  }

 protected:
  template <class Name>
  static int number_below(Tree& tree, const Name& name) {
    int number = 0;
    RYXmlWrapperBase node;
    for (tree.FirstChild(node); node.IsNodeValid() != 0; node.NextBelow(node, tree))
      node.SetPropertyValue(name, ++number);
    return number;
  }
};

// The same with the search of the node class itself and attribute names as plain text.
struct RytreePlainNames : Rytree {
  static bool find(Tree& tree, int id) {
    RYXmlWrapperBase found;
    return tree.FindNodeByAttribute(found, "DataID", id, 1) != 0;
  }

  static int number_all(Tree& tree, const char* name) { return number_below(tree, name); }
};

// A file with a fault at its end. The nodes have been made by then, and Expat reads it once more to say what is wrong.
void load_cut(benchmark::State& state) {
  Run run(state, "rytree_Utils", "load refused");
  const std::string& path = form_path(run.in().nodes, FileForm::kCut);
  run.measure([] { return RYXmlWrapperBase(); },
              [&](RYXmlWrapperBase& tree) { return tree.load(path.c_str(), 0); },
              [](const RYXmlWrapperBase&, int loaded) { return loaded; });
}

Library with_refusal(Library library) {
  library.jobs.push_back({"load refused", false, load_cut, 100'000});
  return library;
}

const Enrol enrolled(0, with_refusal(Jobs<Rytree>::library("rytree_Utils")));
const Enrol plain_enrolled(1, Jobs<RytreePlainNames>::library("plain names",
                                                              {"find", "set existing", "set new"}));

}  // namespace
