#include <rytree_Utils/filter.h>

#include "tests/search_model.h"

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
  std::istringstream cases(
      "0 x|É 1 - BD  1 x|é 2 - ABDFG  0 | 1 - DH  2 - 1 - D  0 - 0 - D  0 x 0 p ADFG  1 x|É|z 0 p ABDEFG "
      "0 - 1 P CDEFGH  0 - 1 r|q ACDEFGH  0 - 2 q|p ACDEFGH  0 - 2 p|r ABCDEFGH  0 - 3 - D  -1 x 1 - D "
      "1 x 1 q ADFG");
  const auto listed_cell = [](const std::string& cell) { return listed(cell == "-" ? "" : cell.c_str()); };
  HostStringArray includes;
  HostStringArray excludes;
  int include = 0;
  int exclude = 0;
  for (std::string in, out, left; cases >> include >> in >> exclude >> out >> left;) {
    includes.array() = listed_cell(in);
    excludes.array() = listed_cell(out);
    RYXmlWrapperBase tree = parse_ids(kXml);
    EXPECT_EQ(rytree_filter(&tree, 1, include, 2, &includes, exclude, 3, &excludes), 1);
    EXPECT_EQ(capitals(tree), left) << include << in << exclude << out;
  }
  EXPECT_TRUE(cases.eof());
  includes.array() = listed("x");
  RYXmlWrapperBase top = parse_ids("<R #1><A #1/><B #2>x</B></R>");
  EXPECT_TRUE(rytree_filter(&top, 1, 0, 2, &includes, 0, 3, &excludes) == 1 && capitals(top) == "AB");
  EXPECT_TRUE(rytree_filter(&top, 1, 0, 2, &includes, 1, 2, &includes) == 1 && top.IsNodeValid() == 0);
}

TEST(FilterByAttribute, text_and_pattern) {
  constexpr Text kXml =
      "<R><A #1 k='Énd'/><B #1 k='xénd'/><C #1><I #1 k='én'/></C><D><E #1 k='éND'><J #1/></E></D><F #2/></R>";
  // At the start or anywhere; -1 marks a pattern.
  const Rows<Text, int, int, Text> rows = {
      {"én", 0, 0, "ABDEJF"}, {"én", 0, 1, "ADEJF"}, {"én", 1, 0, "BDF"},    {"É", 1, 1, "ADF"},
      {"", 0, 1, "ABDEJF"},   {"NDx", 0, 0, "DF"},   {"*nd", 1, -1, "ABDF"}, {"é*", 0, -1, "ADEJF"},
      {"é*", 1, -1, "DEJF"},  {"*", 0, -1, "ABDEJF"}};
  for (const auto& [wanted, exact, at_start, left] : rows) {
    RYXmlWrapperBase tree = parse_ids(kXml);
    EXPECT_EQ(at_start < 0 ? rytree_filter_by_attrib_match(&tree, 1, "k", wanted, exact)
                           : rytree_filter_by_attrib_find(&tree, 1, "k", wanted, exact, at_start),
              1);
    EXPECT_EQ(capitals(tree), left) << wanted;
  }
  RYXmlWrapperBase top = parse_ids("<R #1/>");
  EXPECT_TRUE(rytree_filter_by_attrib_match(&top, 1, "k", "*", 0) == 1 && top.IsNodeValid() == 0);
}

TEST(Filter, bad_arguments) {
  HostStringArray list;
  HostIntArray ints;
  RYXmlWrapperBase tree = parse_ids("<R #1/>");
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_filter(&tree, 1, 9, 2, nullptr, 1, 3, &list), -1);
  EXPECT_EQ(rytree_filter(&tree, 1, 9, 2, &list, 1, 3, &ints), -1);
  for (RYXmlWrapperBase* const bad : {static_cast<RYXmlWrapperBase*>(nullptr), &dead}) {
    EXPECT_EQ(rytree_filter(bad, 1, 0, 2, &ints, 1, 3, &list), -1);
    EXPECT_EQ(rytree_filter(bad, 1, 0, 2, &list, 1, 3, &list), 0);
    EXPECT_FALSE(rytree_filter_by_attrib_find(bad, 1, "k", "", 0, 0) ||
                 rytree_filter_by_attrib_match(bad, 1, "k", "*", 0));
  }
  for (const auto& [attribute, wanted] : Rows<Text, Text>{{nullptr, "x"}, {"k", nullptr}})
    EXPECT_FALSE(rytree_filter_by_attrib_find(&tree, 1, attribute, wanted, 0, 0) ||
                 rytree_filter_by_attrib_match(&tree, 1, attribute, wanted, 0));
  EXPECT_TRUE(tree.IsNodeValid());
}

TEST(Filter, deep_trees) {
  on_small_stack([] {
    HostStringArray texts;
    texts.array().Add("text");
    RYXmlWrapperBase tree = deep_tree(1024);
    RYXmlWrapperBase leaf(tree);
    while (leaf.HasChildren(0) != 0) leaf.FirstChild(leaf);
    leaf.SetDataID(2);
    EXPECT_EQ(rytree_filter(&tree, 1, 0, 2, &texts, 1, 2, &texts), 1);
    EXPECT_EQ(rytree_filter_by_attrib_find(&tree, 1, "k", "", 0, 0), 1);
    EXPECT_EQ(rytree_filter_by_attrib_match(&tree, 1, "k", "", 0), 1);
    EXPECT_EQ(rytree_filter(&tree, 1, 0, 2, &texts, 0, 0, &texts), 1);
    EXPECT_EQ(rytree_filter(&tree, 2, 0, 2, &texts, 1, 2, &texts), 1);
    EXPECT_FALSE(leaf.IsNodeValid());
  });
}

}  // namespace
