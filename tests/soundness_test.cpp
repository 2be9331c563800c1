#include <cstring>

#include "host/rytesavc/node_access.h"
#include "tree_text.h"

namespace {

using rytesavc::Node;
using rytesavc::Tree;
using rytesavc::Value;

struct Inside {
  Tree& tree;
  Node &root, &branch, &leaf;
};

Node stray;
rytesavc::Attribute stray_attribute;

RYXmlWrapperBase sample() {
  const std::string large(600, 'x');
  RYXmlWrapperBase tree =
      parse("<R a=\"a text of some length\" b=\"2\"><B c=\"" + large +
            "\"><L>the text of a leaf</L><M d=\"twelve bytes\"/></B><E/><F/><gone><x/></gone></R>");
  RYXmlWrapperBase node;
  tree.GetChild(node, 3);
  node.RemoveNode();
  tree.GetChild(node, 1);
  return tree;
}

// Each breaks one thing.
TEST(Soundness, TellsEveryKindOfFault) {
  using I = const Inside&;
  const Rows<const char*, void (*)(I)> faults = {
      {"", [](I) {}},
      {"the root hangs somewhere", [](I in) { in.root.parent = &in.leaf; }},
      {"the root hangs somewhere", [](I in) { in.root.depth = 2; }},
      {"a child has another parent", [](I in) { in.leaf.parent = &in.root; }},
      {"a node's link back is wrong", [](I in) { in.leaf.next->back = &in.branch; }},
      {"the link to the last child is wrong", [](I in) { in.leaf.back = &in.leaf; }},
      {"a depth is wrong", [](I in) { ++in.leaf.depth; }},
      {"a count of children is wrong", [](I in) { ++in.branch.child_count; }},
      {"a count of children is wrong", [](I in) { --in.branch.child_count; }},
      {"a count of children is wrong", [](I in) { in.leaf.next->next = &in.leaf; }},
      {"a node is not in the tree's memory", [](I in) { in.branch.next = &stray; }},
      {"a node is dead", [](I in) { in.leaf.generation = 0; }},
      {"nodes are counted that the tree does not hold", [](I in) { in.tree.Copy(&in.leaf, in.tree, 2); }},
      {"the tree holds nodes that are not counted",
       [](I in) { in.tree.Free(in.leaf.next), in.leaf.next->next = nullptr; }},
      {"a tag is not a name of the tree", [](I in) { in.leaf.tag = in.tree.FindName("L") + 1; }},
      {"a name cannot be found", [](I in) { const_cast<char*>(in.leaf.tag->text())[0] = 'Z'; }},
      {"an attribute's name is not a name of the tree", [](I in) { in.root.attributes[1].name = nullptr; }},
      {"a node has an attribute twice",
       [](I in) { in.root.attributes[1].name = in.root.attributes[0].name; }},
      {"there are more attributes than room", [](I in) { in.root.attribute_count = 9; }},
      {"a block is not in the tree's memory",
       [](I in) { in.leaf.attributes = &stray_attribute, in.leaf.attribute_capacity = 1; }},
      {"two things are in one place", [](I in) { in.leaf.text = in.root.attributes[0].value; }},
      {"a block is lost", [](I in) { in.leaf.text = {}; }},
      {"a block is lost", [](I in) { in.root.attribute_capacity = in.root.attribute_count = 0; }},
      {"a value is of no kind", [](I in) { std::memset(static_cast<void*>(&in.leaf.text), 3, 1); }},
      {"a short text is too long", [](I in) { std::memset(static_cast<void*>(&in.leaf.text), 13 << 2, 1); }},
      {"a long text has the wrong length",
       [](I in) { in.leaf.text = Value(12, in.leaf.text.long_chars(), in.leaf.text.capacity()); }},
      {"a long text has the wrong length",
       [](I in) {
         in.leaf.text =
             Value(in.leaf.text.capacity() + 1, in.leaf.text.long_chars(), in.leaf.text.capacity());
       }},
      {"a large block has another size",
       [](I in) {
         Value& large = in.branch.attributes[0].value;
         large = Value(590, large.long_chars(), large.capacity() - 1);
       }},
      {"a large block is lost", [](I in) { in.branch.attributes[0].value = {}; }},
      {"a child that was looked up is at another place",
       [](I in) {
         Node* const second = in.branch.next;
         Node* const third = second->next;
         in.root.first = second, second->back = third, second->next = &in.branch;
         in.branch.back = second, in.branch.next = third, third->back = &in.branch;
       }},
  };
  for (const auto& [fault, spoil] : faults) {
    RYXmlWrapperBase handle = sample();
    Node& root = *NodeAccess::node(handle);
    spoil({*NodeAccess::tree(handle), root, *root.first, *root.first->first});
    CString found = "not looked at";
    EXPECT_EQ(handle.IsTreeSound(&found), *fault == '\0' ? 1 : 0);
    EXPECT_STREQ(found, fault);
  }
  EXPECT_EQ(dead_node().IsTreeSound(), 0);
}

}  // namespace
