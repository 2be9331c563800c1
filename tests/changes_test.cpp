#include <rytree_Utils/changes.h>

#include <vector>

#include "tree_text.h"

namespace {

CStringArray list(const std::vector<const char*>& strings) {
  CStringArray array;
  for (const char* const string : strings) array.Add(string);
  return array;
}

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
  using R = Row<std::vector<const char*>, int, const char*>;
  for (const auto& [strings, changed, after] :
       Rows{R{{"A", "", "c", "d", "e"}, 1, "<R>r<A OldValue='A'>a</A><B>b<C>c</C></B><D>d</D></R>"},
            R{{"a", "b"}, 1, "<R>r<A>a</A><B OldValue='b'>b<C>c</C></B><D>d</D></R>"},
            R{{"", "", "x"}, 2, "<R>r<A OldValue=''>a</A><B>b<C OldValue='x'>c</C></B><D>d</D></R>"},
            R{{}, 0, "<R>r<A>a</A><B>b<C>c</C></B><D>d</D></R>"}}) {
    HostStringArray saved;
    saved.array() = list(strings);
    EXPECT_EQ(rytree_update_changes(&tree, &saved), changed);
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

TEST(Changes, ListsOfIntsAreCompared) {
  HostIntArray a;
  HostIntArray b;
  a.array().Add(1);
  EXPECT_EQ(ry_is_same(&a, &b), 0);
  EXPECT_EQ(ry_is_same(&b, &a), 0);
  b.array().Add(2);
  EXPECT_EQ(ry_is_same(&a, &b), 0);
  EXPECT_EQ(ry_is_same(&a, &a), 1);
}

TEST(Changes, FirstDifferenceOfLists) {
  using Strings = std::vector<const char*>;
  for (const auto& [strings, others, exact, ignoring_case] : Rows<Strings, Strings, int, int>{
           {{"a"}, {}, -2, -2}, {{"a", "b"}, {"a", "b"}, -1, -1}, {{"a", "É", "c"}, {"a", "é", "d"}, 1, 2}}) {
    HostStringArray first;
    HostStringArray second;
    first.array() = list(strings);
    second.array() = list(others);
    EXPECT_EQ(ryget_changed(&first, &second, 256), exact);
    EXPECT_EQ(ryget_changed(&first, &second, 0), ignoring_case);
  }
}

TEST(Changes, BadArguments) {
  HostStringArray strings;
  HostIntArray ints;
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_update_changes(&dead, &ints), -1);
  EXPECT_EQ(rytree_update_changes(nullptr, &strings), -1);
  EXPECT_EQ(rytree_node_changed(nullptr, 1, "a"), 0);
  EXPECT_EQ(rytree_node_changed(&dead, 0, nullptr), 0);
  EXPECT_EQ(rytree_node_changed(&dead, 1, "a"), 1);
  EXPECT_EQ(rytree_node_changed(&dead, 1, nullptr), 1);
  EXPECT_EQ(ry_is_same(nullptr, &ints), 0);
  EXPECT_EQ(ry_is_same(&ints, &strings), 0);
  EXPECT_EQ(ryget_changed(nullptr, &strings, 1), -1);
  EXPECT_EQ(ryget_changed(&strings, &ints, 1), -1);
}

}  // namespace
