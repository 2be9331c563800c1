#include <rytree_Utils/changes.h>

#include <vector>

#include "tree_text.h"

namespace {

using Strings = std::vector<const char*>;

void fill(HostStringArray& object, const Strings& strings) {
  for (const char* const string : strings) object.array().Add(string);
}

TEST(ChangeMark, set_read_and_cleared) {
  RYXmlWrapperBase node = parse("<A OldName=\"n\" Label=\"l\"/>");
  EXPECT_TRUE(rytree_node_changed(&node, 0, "old") == 0 && rytree_node_changed(&node, 2, "") == 1);
  EXPECT_NE(rytree_node_changed(&node, 0, nullptr), 0);
  EXPECT_EQ(rytree_node_changed(&node, -1, "old"), 1);
  EXPECT_EQ(text(node), "<A OldName=\"n\" Label=\"l\" OldValue=\"old\"/>");
  EXPECT_EQ(rytree_node_changed(&node, 1, nullptr), 1);
  EXPECT_EQ(text(node), "<A Label=\"l\"/>");
}

TEST(Changes, marked_against_a_list) {
  const Rows<Strings, int, const char*> rows = {
      {{"A", "", "c", "d", "e"}, 1, "<R>r<A OldValue=\"A\">a</A><B>b<C>c</C></B><D>d</D></R>"},
      {{"a", "b"}, 1, "<R>r<A>a</A><B OldValue=\"b\">b<C>c</C></B><D>d</D></R>"},
      {{"", "", "x"}, 2, "<R>r<A OldValue=\"\">a</A><B>b<C OldValue=\"x\">c</C></B><D>d</D></R>"},
      {{}, 0, "<R>r<A>a</A><B>b<C>c</C></B><D>d</D></R>"}};
  // Each comparison starts with the marks of the one before, and none of them may stay.
  RYXmlWrapperBase tree = parse("<R>r<A>a</A><B>b<C OldName=\"n\">c</C></B><D OldValue=\"e\">d</D></R>");
  for (const auto& [strings, changed, xml] : rows) {
    HostStringArray saved;
    fill(saved, strings);
    EXPECT_EQ(rytree_update_changes(&tree, &saved), changed);
    EXPECT_EQ(text(tree), xml);
  }
  CString value;
  for (const char* const read : {"a", ""}) {
    RYXmlWrapperBase node = *read ? at(tree, {0}) : tree;
    VCTreeNodeGetValue(node, value);
    EXPECT_EQ(value, read);
  }
}

TEST(Lists, same_numbers) {
  HostIntArray a;
  HostIntArray b;
  a.array().Add(1);
  EXPECT_EQ(ry_is_same(&a, &b) + ry_is_same(&b, &a), 0);
  b.array().Add(2);
  EXPECT_EQ(ry_is_same(&a, &b), 0);
  EXPECT_EQ(ry_is_same(&a, &a), 1);
}

TEST(Lists, first_difference) {
  const Rows<Strings, Strings, int, int> rows = {
      {{"a"}, {}, -2, -2}, {{"a", "b"}, {"a", "b"}, -1, -1}, {{"a", "É", "c"}, {"a", "é", "d"}, 1, 2}};
  for (const auto& [strings, others, exact, ignoring_case] : rows) {
    HostStringArray first;
    HostStringArray second;
    fill(first, strings);
    fill(second, others);
    EXPECT_EQ(ryget_changed(&first, &second, 256), exact);
    EXPECT_EQ(ryget_changed(&first, &second, 0), ignoring_case);
  }
}

TEST(Changes, bad_arguments) {
  HostStringArray strings;
  HostIntArray ints;
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_update_changes(&dead, &ints), -1);
  EXPECT_EQ(rytree_update_changes(nullptr, &strings), -1);
  EXPECT_EQ(rytree_node_changed(nullptr, 1, "a") + rytree_node_changed(&dead, 0, nullptr), 0);
  EXPECT_EQ(rytree_node_changed(&dead, 1, "a") + rytree_node_changed(&dead, 1, nullptr), 2);
  CString value("old");
  VCTreeNodeGetValue(dead, value);
  EXPECT_EQ(value, "");
  EXPECT_EQ(ry_is_same(nullptr, &ints) + ry_is_same(&ints, &strings), 0);
  EXPECT_EQ(ryget_changed(nullptr, &strings, 1) + ryget_changed(&strings, &ints, 1), -2);
}

}  // namespace
