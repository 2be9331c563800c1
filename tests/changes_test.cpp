#include <rytree_Utils/changes.h>
#include <rytree_Utils/values.h>

#include "call_arguments.h"

namespace {

/// Texts with a NUL for each 0 of the list.
struct Texts : Strings {
  explicit Texts(const std::string& list) : Strings(list) {
    for (CString& text : array()) text.Replace('0', '\0');
  }
};

}  // namespace

TEST(Changes, MarkIsSetReadAndCleared) {
  RYXmlWrapperBase node = parse("<A OldName='n' Label='l'/>");
  EXPECT_EQ(rytree_node_changed(&node, 0, "old"), 0);
  EXPECT_EQ(rytree_node_changed(&node, 2, ""), 1);
  EXPECT_NE(rytree_node_changed(&node, 0, nullptr), 0);
  EXPECT_EQ(rytree_node_changed(&node, -1, "old"), 1);
  EXPECT_EQ(text(node), text(parse("<A OldName='n' Label='l' OldValue='old'/>")));
  EXPECT_EQ(rytree_node_changed(&node, 1, nullptr), 1);
  EXPECT_EQ(text(node), text(parse("<A Label='l'/>")));
}

TEST(Changes, NodesAreMarkedAgainstAList) {
  // Each comparison starts with the marks of the one before, and none of them may stay.
  RYXmlWrapperBase tree = parse("<R>r<A>a</A><B>b<C OldName='n'>c</C></B><D OldValue='e'>d</D></R>");
  for (const auto& [strings, changed, after] : rows<3>(R"(
      A,,c,d,e | 1 | <R>r<A OldValue='A'>a</A><B>b<C>c</C></B><D>d</D></R>
      a,b      | 1 | <R>r<A>a</A><B OldValue='b'>b<C>c</C></B><D>d</D></R>
      ,,x      | 2 | <R>r<A OldValue=''>a</A><B>b<C OldValue='x'>c</C></B><D>d</D></R>
               | 0 | <R>r<A>a</A><B>b<C>c</C></B><D>d</D></R>)")) {
    Texts saved(strings);
    EXPECT_EQ(rytree_update_changes(&tree, &saved), std::stoi(changed));
    EXPECT_EQ(text(tree), text(parse(after)));
  }
  RYXmlWrapperBase dead = dead_node();
  RYXmlWrapperBase leaf = at(tree, {0});
  for (const auto& [node, expected] :
       Rows<RYXmlWrapperBase*, const char*>{{&leaf, "a"}, {&tree, ""}, {&dead, ""}}) {
    CString value("former");
    VCTreeNodeGetValue(*node, value);
    EXPECT_EQ(value, expected);
  }
}

TEST(Changes, FirstDifferenceOfLists) {
  for (const auto& [first, second, exact, ignoring_case] :
       Rows{Row{"a", "", -2, -2}, Row{"a,b", "a,b", -1, -1}, Row{"a,É,c", "a,é,d", 1, 2},
            Row{"a0b0,a0b", "a0B0,a0c", 0, 1}, Row{"a0b", "A", 0, 0}}) {
    Texts strings(first);
    Texts others(second);
    EXPECT_EQ(ryget_changed(&strings, &others, 256), exact);
    EXPECT_EQ(ryget_changed(&strings, &others, 0), ignoring_case);
  }
  Ints one("1");
  Ints two("2");
  Ints none;
  for (const auto& [first, second, same] :
       Rows<Ints*, Ints*, int>{{&one, &none, 0}, {&none, &one, 0}, {&one, &two, 0}, {&one, &one, 1}})
    EXPECT_EQ(ry_is_same(first, second), same);
}

TEST(Changes, BadArguments) {
  Strings strings;
  Ints ints;
  RYXmlWrapperBase node = parse("<A/>");
  EXPECT_EQ(with_bad(rytree_update_changes, &node, &strings), "-1 0,-1 -1");
  EXPECT_EQ(with_bad(rytree_node_changed, &node, 0, "a"), "0 0,0");
  EXPECT_EQ(with_bad(rytree_node_changed, &node, 1, "a"), "0 1,1");
  EXPECT_EQ(with_bad(ry_is_same, &ints, &ints), "0 0,0 0");
  EXPECT_EQ(with_bad(ryget_changed, &strings, &strings, 1), "-1 -1,-1 -1");
}
