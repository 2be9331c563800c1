#include <rytree_Utils/filter.h>

#include "search/filter.h"
#include "search_model.h"

namespace {

using Text = const char*;

/// The tags in capitals below a node, without the rest.
std::string capitals(const RYXmlWrapperBase& node) {
  std::string tags;
  for (Children child(node); child; ++child) {
    if (tag(*child)[0] <= 'Z') tags += tag(*child);
    tags += capitals(*child);
  }
  return tags;
}

TEST(Filter, modes) {
  // A to C, E, F and H are candidates, D is none, G stands inside one.
  constexpr Text kXml =
      "<R><A #1><t #2>x</t><t #3>p</t></A><B #1><t #2>X<u><t #2>é</t></u></t><t #3>p</t><t #3>Q</t></B>"
      "<C #1/><D #2>x<E #1><t #2>z</t></E></D><F #1><G #1><t #2>x</t></G></F><H #1><t #2/></H></R>";
  const Rows<int, Text, int, Text, Text> rows = {{0, "", 1, "", "ABCDEFGH"},  {0, "x", 1, "", "ABDFG"},
                                                 {0, "x|É", 1, "", "BD"},     {1, "x|é", 1, "", "ABDFG"},
                                                 {0, "x|x", 2, "", "ABDFG"},  {1, "w", 1, "", "D"},
                                                 {0, "|", 1, "", "DH"},       {2, "", 1, "", "D"},
                                                 {-1, "x", 1, "", "D"},       {0, "", 0, "", "D"},
                                                 {1, "", 0, "", "D"},         {0, "x", 0, "", "ADFG"},
                                                 {1, "x", 0, "p", "ADFG"},    {1, "x|É|z", 0, "p", "ABDEFG"},
                                                 {0, "", 1, "P", "CDEFGH"},   {0, "", 1, "r|q", "ACDEFGH"},
                                                 {0, "", 1, "x", "ABCDEFGH"}, {0, "", 2, "q|p", "ACDEFGH"},
                                                 {0, "", 2, "p", "CDEFGH"},   {0, "", 2, "p|r", "ABCDEFGH"},
                                                 {0, "", 3, "", "D"},         {0, "", -1, "", "D"},
                                                 {1, "x", 1, "q", "ADFG"}};
  for (const auto& [include_mode, include_list, exclude_mode, exclude_list, left] : rows) {
    HostStringArray includes;
    HostStringArray excludes;
    includes.array() = listed(include_list);
    excludes.array() = listed(exclude_list);
    RYXmlWrapperBase tree = parse_ids(kXml);
    EXPECT_EQ(rytree_filter(&tree, 1, include_mode, 2, &includes, exclude_mode, 3, &excludes), 1);
    EXPECT_EQ(capitals(tree), left) << include_mode << include_list << exclude_mode << exclude_list;
    EXPECT_EQ(rytree_filter(&tree, 9, include_mode, 2, &includes, exclude_mode, 3, &excludes), 1);
    EXPECT_EQ(capitals(tree), left);
  }
}

TEST(Filter, start_node_is_the_only_candidate) {
  HostStringArray includes;
  HostStringArray excludes;
  for (const auto& [include, left] : Rows<Text, Text>{{"x", "AB"}, {"y", ""}}) {
    includes.array() = listed(include);
    RYXmlWrapperBase tree = parse_ids("<R #1><A #1/><B #2>x</B></R>");
    EXPECT_EQ(rytree_filter(&tree, 1, 0, 2, &includes, 1, 3, &excludes), 1);
    EXPECT_EQ(tree.IsNodeValid(), *left != '\0');
    EXPECT_EQ(capitals(tree), left);
  }
}

TEST(FilterByAttribute, text_and_pattern) {
  constexpr Text kXml =
      "<R><A #1 k='Énd'/><B #1 k='xénd'/><C #1><I #1 k='én'/></C><D><E #1 k='éND'><J #1/></E></D><F #2/></R>";
  const Rows<Text, int, int, Text> finds = {
      {"én", 0, 0, "ABDEJF"}, {"én", 0, 1, "ADEJF"}, {"én", 1, 0, "BDF"}, {"É", 1, 1, "ADF"},
      {"", 0, 1, "ABDEJF"},   {"", 1, 0, "ABDEJF"},  {"zz", 0, 0, "DF"},  {"NDx", 0, 0, "DF"}};
  for (const auto& [wanted, exact, at_start, left] : finds) {
    RYXmlWrapperBase tree = parse_ids(kXml);
    EXPECT_EQ(rytree_filter_by_attrib_find(&tree, 1, "k", wanted, exact, at_start), 1);
    EXPECT_EQ(capitals(tree), left) << wanted;
  }
  const Rows<Text, int, Text> matches = {
      {"*nd", 1, "ABDF"}, {"é*", 0, "ADEJF"}, {"é*", 1, "DEJF"}, {"*", 0, "ABDEJF"}, {"é", 0, "DF"}};
  for (const auto& [pattern, flag, left] : matches) {
    RYXmlWrapperBase tree = parse_ids(kXml);
    EXPECT_EQ(rytree_filter_by_attrib_match(&tree, 1, "k", pattern, flag), 1);
    EXPECT_EQ(capitals(tree), left) << pattern;
    EXPECT_EQ(rytree_filter_by_attrib_match(&tree, 3, "k", pattern, flag), 1);
    EXPECT_EQ(capitals(tree), left) << pattern;
  }
  RYXmlWrapperBase top = parse_ids("<R #1/>");
  EXPECT_EQ(rytree_filter_by_attrib_match(&top, 1, "k", "*", 0), 1);
  EXPECT_FALSE(top.IsNodeValid());
}

TEST(Filter, bad_arguments) {
  HostStringArray list;
  HostIntArray ints;
  RYXmlWrapperBase tree = parse_ids("<R #1/>");
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_filter(&tree, 1, 9, 2, nullptr, 1, 3, &list), -1);
  EXPECT_EQ(rytree_filter(&tree, 1, 9, 2, &list, 1, 3, &ints), -1);
  for (RYXmlWrapperBase* const bad : {static_cast<RYXmlWrapperBase*>(nullptr), &dead}) {
    EXPECT_EQ(rytree_filter(bad, 1, 0, 2, &list, 1, 3, &list), 0);
    EXPECT_EQ(rytree_filter(bad, 1, 0, 2, &ints, 1, 3, &list), -1);
    EXPECT_EQ(rytree_filter_by_attrib_find(bad, 1, "k", "", 0, 0), 0);
    EXPECT_EQ(rytree_filter_by_attrib_match(bad, 1, "k", "*", 0), 0);
  }
  for (const auto& [attribute, wanted] : Rows<Text, Text>{{nullptr, "x"}, {"k", nullptr}}) {
    EXPECT_EQ(rytree_filter_by_attrib_find(&tree, 1, attribute, wanted, 0, 0), 0);
    EXPECT_EQ(rytree_filter_by_attrib_match(&tree, 1, attribute, wanted, 0), 0);
  }
  EXPECT_TRUE(tree.IsNodeValid());
}

TEST(Filter, deep_trees) {
  on_small_stack([] {
    HostStringArray texts;
    texts.array().Add("text");
    RYXmlWrapperBase tree = deep_tree(1024);
    RYXmlWrapperBase leaf(tree);
    for (RYXmlWrapperBase at(tree); at.IsNodeValid() != 0; at.FirstChild(at)) leaf = at;
    leaf.SetDataID(2);
    EXPECT_EQ(rytree_filter(&tree, 1, 0, 2, &texts, 1, 2, &texts), 1);
    EXPECT_EQ(rytree_filter_by_attrib_find(&tree, 1, "k", "", 0, 0), 1);
    EXPECT_EQ(rytree_filter_by_attrib_match(&tree, 1, "k", "", 0), 1);
    EXPECT_EQ(rytree_filter_test_node(&tree, 0, 2, &texts.array(), 0, 0, nullptr), 1);
    EXPECT_EQ(rytree_filter(&tree, 2, 0, 2, &texts, 1, 2, &texts), 1);
    EXPECT_FALSE(leaf.IsNodeValid());
  });
}

}  // namespace
