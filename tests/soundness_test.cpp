#include <functional>

#include "host/rytesavc/node_access.h"
#include "tree_text.h"

namespace {

using rytesavc::Node;
using rytesavc::Tree;

struct Inside {
  Tree& tree;
  Node &root, &branch, &leaf;
};

RYXmlWrapperBase sample() {
  const std::string large(600, 'x');
  RYXmlWrapperBase tree =
      parse("<R a=\"a text of some length\" b=\"2\"><B c=\"" + large +
            "\"><L>the text of a leaf</L><M d=\"short\"/></B><E/><F/><gone><x/></gone></R>");
  RYXmlWrapperBase node;
  tree.GetChild(node, 3);
  node.RemoveNode();
  tree.GetChild(node, 1);
  return tree;
}

// Each breaks one thing.
TEST(Soundness, TellsEveryKindOfFault) {
  using Break = std::function<void(const Inside&)>;
  using R = Row<const char*, Break>;
  for (const auto& [fault, spoil] : Rows{
           R{"", [](const Inside&) {}},
           R{"the root hangs somewhere", [](const Inside& in) { in.root.parent = &in.leaf; }},
           R{"the root hangs somewhere", [](const Inside& in) { in.root.depth = 2; }},
           R{"a child has another parent", [](const Inside& in) { in.leaf.parent = &in.root; }},
           R{"a node's link back is wrong", [](const Inside& in) { in.leaf.next->back = &in.branch; }},
           R{"the link to the last child is wrong", [](const Inside& in) { in.leaf.back = &in.leaf; }},
           R{"a depth is wrong", [](const Inside& in) { ++in.leaf.depth; }},
           R{"a count of children is wrong", [](const Inside& in) { ++in.branch.child_count; }},
           R{"a count of children is wrong", [](const Inside& in) { --in.branch.child_count; }},
           R{"a count of children is wrong", [](const Inside& in) { in.leaf.next->next = &in.leaf; }},
           R{"a node is not in the tree's memory",
             [](const Inside& in) {
               static Node other;
               in.branch.next = &other;
             }},
           R{"a node is dead", [](const Inside& in) { in.leaf.generation = 0; }},
           R{"nodes are counted that the tree does not hold",
             [](const Inside& in) { in.tree.Copy(&in.leaf, in.tree, 2); }},
           R{"the tree holds nodes that are not counted",
             [](const Inside& in) { in.tree.Free(in.leaf.next), in.leaf.next->next = nullptr; }},
           R{"a tag is not a name of the tree",
             [](const Inside& in) { in.leaf.tag = in.tree.FindName("L") + 1; }},
           R{"a name cannot be found",
             [](const Inside& in) { const_cast<char*>(in.leaf.tag->text())[0] = 'Z'; }},
           R{"an attribute's name is not a name of the tree",
             [](const Inside& in) { in.root.attributes[1].name = nullptr; }},
           R{"a node has an attribute twice",
             [](const Inside& in) { in.root.attributes[1].name = in.root.attributes[0].name; }},
           R{"there are more attributes than room", [](const Inside& in) { in.root.attribute_count = 9; }},
           R{"a block is not in the tree's memory",
             [](const Inside& in) {
               static rytesavc::Attribute other;
               in.leaf.attributes = &other, in.leaf.attribute_capacity = 1;
             }},
           R{"two things are in one place",
             [](const Inside& in) { in.leaf.text = in.root.attributes[0].value; }},
           R{"a block is lost", [](const Inside& in) { in.leaf.text = {}; }},
           R{"a block is lost",
             [](const Inside& in) { in.root.attribute_capacity = in.root.attribute_count = 0; }},
           R{"a large block is lost", [](const Inside& in) { in.branch.attributes[0].value = {}; }},
           R{"a child that was looked up is at another place",
             [](const Inside& in) {
               Node* const second = in.branch.next;
               Node* const third = second->next;
               in.root.first = second, second->back = third, second->next = &in.branch;
               in.branch.back = second, in.branch.next = third, third->back = &in.branch;
             }},
       }) {
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
