#include <rytree_Utils/search.h>

#include <climits>

#include "frame/decimal.h"
#include "tests/search_model.h"

namespace {

using Text = const char*;

/// The two arrays of a set of attributes; a value is taken as a text or as the number that it begins with.
struct Attributes {
  Attributes(Text name_list, Text value_list) {
    names.array() = listed(name_list);
    texts.array() = listed(value_list);
    for (const CString& value : texts.array()) ints.array().Add(leading_int(value));
  }
  HostStringArray names;
  HostStringArray texts;
  HostIntArray ints;
};

TEST(CheckAttributes, texts_and_ints) {
  RYXmlWrapperBase node = parse("<N k='Éa' n='5' m='05' t=''/>");
  // The digits of a result: as texts, as texts in any case, as numbers.
  const Rows<Text, Text, int> rows = {{"", "", 111},     {"k", "Éa", 110},   {"k", "éA", 10},
                                      {"k", "0", 0},     {"n", "5", 111},    {"m", "5", 1},
                                      {"n|m", "5|6", 0}, {"t|n", "|5", 110}, {"x|n", "|5", 0},
                                      {"n|n", "5", 0},   {"n", "5|5", 0},    {"n|k", "4|Éa", 0}};
  for (const auto& [names, values, digits] : rows) {
    Attributes set(names, values);
    const int exact = rytree_check_node_str_attr(&node, &set.names, &set.texts, 0);
    const int any_case = rytree_check_node_str_attr(&node, &set.names, &set.texts, 2);
    const int number = rytree_check_node_int_attr(&node, &set.names, &set.ints);
    EXPECT_EQ(exact * 100 + any_case * 10 + number, digits) << names << values;
  }
}

bool literal_find(const RYXmlWrapperBase& parent, RYXmlWrapperBase& found, Attributes& set, int recursive,
                  int index) {
  int matched = 0;
  for (Children child(parent); child; ++child) {
    if (rytree_check_node_int_attr(&*child, &set.names, &set.ints) != 0) {
      if (matched == index) return found = *child, true;
      ++matched;
    }
    if (recursive != 0 && literal_find(*child, found, set, recursive, index - matched)) return true;
  }
  return false;
}

TEST(FindAttributes, as_the_literal_search_on_random_trees) {
  std::mt19937 random(1);
  Attributes set("k", "1");
  for (int round = 0; round < 3000; ++round) {
    RYXmlWrapperBase tree = alike_nodes(random, 30)[0];
    RYXmlWrapperBase expected(tree);
    RYXmlWrapperBase found(tree);
    RYXmlWrapperBase by_text(tree);
    const int deep = round % 2;
    const int index = round % 9;
    const bool there = literal_find(tree, expected, set, deep, index);
    ASSERT_EQ(rytree_find_node_with_int_attr(&found, &found, &set.names, &set.ints, deep, index), there);
    ASSERT_EQ(rytree_find_node_with_str_attr(&tree, &by_text, &set.names, &set.texts, deep, index), there);
    ASSERT_TRUE(found == expected && by_text == expected) << index << text(tree);
  }
}

TEST(Help, by_id_and_repeat) {
  const RYXmlWrapperBase tree = parse_ids(
      "<T><A #310/><B #391/><C #430/><D #305/><E #446/><F #442/><G #420 ^256><H #440/><J #7><K #8/></J></G>"
      "<G #420 ^300><L #440/><M #7/><N #430/></G><O #420 ^1024><P #7/></O><Q #420 ^1025><S #7/></Q>"
      "<U #420 ^255><V #7/></U></T>");
  const Rows<int, int, Text> rows = {{440, 256, "A"}, {440, 300, "L"}, {448, 256, "B"}, {448, 300, ""},
                                     {430, 300, "C"}, {305, 0, "D"},   {446, 256, "E"}, {442, -1, "F"},
                                     {7, 300, "M"},   {7, 1024, "P"},  {7, 1025, "J"},  {7, 255, "J"},
                                     {8, 256, ""}};
  for (const auto& [id, repeat, expected] : rows) {
    RYXmlWrapperBase found(tree);
    EXPECT_EQ(rytree_get_help_node(&found, &found, id, repeat), *expected != '\0');
    EXPECT_EQ(tag(found), expected) << id << ' ' << repeat;
  }
}

TEST(Localization, with_fallback) {
  const RYXmlWrapperBase tree =
      parse_ids("<T><F #9>f</F><Q #3 ^7><C #5>c</C></Q><P #3 ^256><A #5> \t</A><B #6> b </B></P></T>");
  const Rows<int, int, int, int, int, int, Text> rows = {{5, 9, 3, 0, 0, 1, "A"},   {5, 9, 3, 1, -1, 1, "F"},
                                                         {5, 8, 3, 1, 256, 0, "A"}, {6, 9, 3, 1, 256, 1, "B"},
                                                         {5, 9, 3, 1, 7, 1, "C"},   {5, 9, 0, 0, 256, 1, "C"},
                                                         {4, 5, 3, 0, 7, 0, ""},    {6, 9, 3, 0, 7, 1, "F"}};
  for (const auto& [id, fallback, parent, check_empty, repeat, result, expected] : rows) {
    RYXmlWrapperBase node(tree);
    EXPECT_EQ(rytree_get_localization_node(&node, &node, id, fallback, parent, check_empty, repeat), result);
    EXPECT_EQ(tag(node), expected) << id;
  }
}

TEST(Count, by_attribute) {
  RYXmlWrapperBase tree = parse("<R k='x'><A k='x'><B k='y'/><C/></A><D><E k='x'/></D></R>");
  const Rows<Text, Text, int, int, int> rows = {
      {nullptr, nullptr, 0, 0, 2}, {nullptr, "z", 0, 1, 5}, {"k", nullptr, 0, 1, 3}, {"k", nullptr, 1, 1, 5},
      {"k", "x", 0, 1, 2},         {"k", "x", 1, 1, 4},     {"k", "X", 0, 1, 0},     {"", "", 0, 1, 0}};
  for (const auto& [attribute, value, missing, recursive, count] : rows)
    EXPECT_EQ(rytree_count_items_by_attribute(&tree, attribute, value, missing, recursive), count);
}

TEST(Search, bad_arguments) {
  Attributes set("", "");
  RYXmlWrapperBase tree = parse("<R><A/></R>");
  RYXmlWrapperBase dead = dead_node();
  using Array = HostArrayObject*;
  // With an array of another kind every node is a match.
  const Rows<RYXmlWrapperBase*, Array, Array, int, int> rows = {
      {&dead, &set.names, &set.ints, 1, 0}, {nullptr, &set.names, &set.ints, 0, 0},
      {&tree, &set.ints, &set.ints, -1, 1}, {&tree, &set.names, &set.texts, -1, 1},
      {&tree, nullptr, &set.ints, 0, 0},    {&tree, &set.names, nullptr, 0, 0}};
  for (const auto& [node, names, values, check, find] : rows) {
    EXPECT_EQ(rytree_check_node_int_attr(node, names, values), check);
    EXPECT_EQ(rytree_find_node_with_int_attr(node, nullptr, names, values, 1, 0), find);
    EXPECT_EQ(rytree_find_node_with_int_attr(node, nullptr, names, values, 1, INT_MIN), 0);
  }
  for (RYXmlWrapperBase* const bad : {static_cast<RYXmlWrapperBase*>(nullptr), &dead}) {
    EXPECT_EQ(rytree_count_items_by_attribute(bad, nullptr, nullptr, 1, 1), -1);
    EXPECT_EQ(rytree_get_help_node(&dead, bad, 305, 256) + rytree_get_help_node(nullptr, bad, 7, 256), 0);
    EXPECT_FALSE(rytree_get_localization_node(bad, &tree, 1, 1, 0, 1, 1) ||
                 rytree_get_localization_node(&dead, bad, 1, 1, 0, 1, 1));
  }
}

TEST(Search, deep_trees) {
  on_small_stack([] {
    Attributes set("k", "1");
    RYXmlWrapperBase tree = deep_tree(1024);
    EXPECT_EQ(rytree_find_node_with_str_attr(&tree, &tree, &set.names, &set.texts, 1, 0), 0);
    EXPECT_EQ(rytree_find_node_with_int_attr(&tree, &tree, &set.names, &set.ints, 1, 0), 0);
    EXPECT_EQ(rytree_count_items_by_attribute(&tree, "k", "v", 1, 1), 1023);
  });
}

}  // namespace
