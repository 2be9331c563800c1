// Finding and counting by attributes; the help and localization nodes.
#include <rytree_Utils/search.h>

#include <climits>

#include "call_arguments.h"

TEST(Attributes, MatchAsTextsAndInts) {
  RYXmlWrapperBase node = parse("<N k='Éa' n='5' m='05' t=''/>");
  const Rows<Text, Text, int, int, int> cases = {
      {"", "", 1, 1, 1},       {"k", "Éa", 1, 1, 0},     {"k", "éA", 0, 1, 0},     {"k", "0", 0, 0, 0},
      {"n", "5", 1, 1, 1},     {"m", "5", 0, 0, 1},      {"n,m", "5,6", 0, 0, 0},  {"t,n", ",5", 1, 1, 0},
      {"x,n", ",5", 0, 0, 0},  {"n,n", "5", 0, 0, 0},    {"n", "5,5", 0, 0, 0},    {"n,k", "4,Éa", 0, 0, 0},
      {"n,n", "5,6", 0, 0, 0}, {"n,m", "5,05", 1, 1, 1}, {"k,k", "Éa,éA", 0, 1, 0}};
  for (const auto& [names, values, exact, any_case, number] : cases) {
    for (const int times : {1, 9}) {  // the same attributes again change nothing
      Strings name_list(names, times);
      Strings texts(values, times);
      Ints ints(values, times);
      EXPECT_EQ(rytree_check_node_str_attr(&node, &name_list, &texts, 0), exact);
      EXPECT_EQ(rytree_check_node_str_attr(&node, &name_list, &texts, 2), any_case);
      EXPECT_EQ(rytree_check_node_int_attr(&node, &name_list, &ints), number);
    }
  }
}

TEST(Attributes, AreFoundByTheNumberOnTheirLevel) {
  const RYXmlWrapperBase tree = parse(
      "<T k='1'><A k='1'><B k='1'/><C k='2'/></A><E><F k='1'/><G k='1'><I k='1'/></G></E><H k='1'/></T>");
  const Rows<int, int, Text> cases = {{0, 0, "A"}, {0, 1, "H"}, {0, 2, "T"}, {0, -1, "T"}, {2, 0, "A"},
                                      {2, 1, "B"}, {2, 2, "G"}, {2, 3, "I"}, {2, 4, "T"},  {2, INT_MIN, "T"}};
  Strings names("k");
  Strings texts("1");
  Ints ints("1");
  for (const auto& [deep, index, expected] : cases) {
    for (const bool as_text : {false, true}) {
      RYXmlWrapperBase found(tree);
      EXPECT_EQ(as_text ? rytree_find_node_with_str_attr(&found, &found, &names, &texts, deep, index)
                        : rytree_find_node_with_int_attr(&found, &found, &names, &ints, deep, index),
                *expected != 'T');
      EXPECT_EQ(tag(found), expected);
    }
  }
}

TEST(Attributes, AreCounted) {
  RYXmlWrapperBase tree = parse("<R k='x'><A k='x'><B k='y'/><C/></A><D><E k='x'/></D></R>");
  const Rows<Text, Text, int, int, int> cases = {
      {nullptr, nullptr, 0, 0, 2}, {nullptr, "z", 0, 1, 5}, {"k", nullptr, 0, 1, 3}, {"k", nullptr, 1, 1, 5},
      {"k", "x", 0, 1, 2},         {"k", "x", 1, 1, 4},     {"k", "X", 0, 1, 0},     {"", "", 0, 1, 0}};
  for (const auto& [attribute, value, missing, recursive, count] : cases)
    EXPECT_EQ(rytree_count_items_by_attribute(&tree, attribute, value, missing, recursive), count);
}

TEST(Help, IsFoundByIdAndRepeat) {
  const RYXmlWrapperBase tree = parse_ids(
      "<T><A #310/><B #391/><C #430/><D #305/><E #446/><F #442/><G #420 ^256><H #440/><J #7><K #8/></J></G>"
      "<G #420 ^300><L #440/><M #7/><N #430/></G><O #420 ^1024><P #7/></O><Q #420 ^1025><S #7/></Q>"
      "<U #420 ^255><V #7/></U></T>");
  for (const auto& [id, repeat, expected] :
       Rows{Row{440, 256, "A"}, Row{440, 300, "L"}, Row{448, 256, "B"}, Row{448, 300, ""}, Row{430, 300, "C"},
            Row{305, 0, "D"}, Row{446, 256, "E"}, Row{442, -1, "F"}, Row{7, 300, "M"}, Row{7, 1024, "P"},
            Row{7, 1025, "J"}, Row{7, 255, "J"}, Row{8, 256, ""}}) {
    RYXmlWrapperBase found(tree);
    EXPECT_EQ(rytree_get_help_node(&found, &found, id, repeat), *expected != '\0');
    EXPECT_EQ(tag(found), expected);
  }
}

TEST(Localization, FallsBack) {
  const RYXmlWrapperBase tree =
      parse_ids("<T><F #9>f</F><Q #3 ^7><C #5>c</C></Q><P #3 ^256><A #5> \t</A><B #6> b </B></P></T>");
  for (const auto& [id, fallback, parent, check_empty, repeat, result, expected] :
       Rows{Row{5, 9, 3, 0, 0, 1, "A"}, Row{5, 9, 3, 1, -1, 1, "F"}, Row{5, 8, 3, 1, 256, 0, "A"},
            Row{6, 9, 3, 1, 256, 1, "B"}, Row{5, 9, 3, 1, 7, 1, "C"}, Row{5, 9, 0, 0, 256, 1, "C"},
            Row{4, 5, 3, 0, 7, 0, ""}, Row{6, 9, 3, 0, 7, 1, "F"}}) {
    RYXmlWrapperBase node(tree);
    EXPECT_EQ(rytree_get_localization_node(&node, &node, id, fallback, parent, check_empty, repeat), result);
    EXPECT_EQ(tag(node), expected);
  }
}

TEST(Search, RefusesBadArguments) {
  RYXmlWrapperBase tree = parse_ids("<R><A #305/></R>");
  RYXmlWrapperBase out;
  Strings none;
  Ints ints;
  // With an array of another kind every node is a match, as it is for no attributes.
  EXPECT_EQ(with_bad(rytree_check_node_int_attr, &tree, &none, &ints), "0 1,0 -1,0 -1");
  EXPECT_EQ(with_bad(rytree_check_node_str_attr, &tree, &none, &none, 0), "0 1,0 -1,0 -1");
  EXPECT_EQ(with_bad(rytree_find_node_with_int_attr, &tree, &out, &none, &ints, 1, 0), "0 0,1 1,0 1,0 1");
  EXPECT_EQ(with_bad(rytree_find_node_with_str_attr, &tree, &out, &none, &none, 1, 0), "0 0,1 1,0 1,0 1");
  EXPECT_EQ(with_bad(rytree_count_items_by_attribute, &tree, "k", "v", 1, 1), "-1 -1,1,1");
  EXPECT_EQ(with_bad(rytree_get_help_node, &out, &tree, 305, 256), "0 1,0 0");
  EXPECT_EQ(with_bad(rytree_get_localization_node, &out, &tree, 305, 305, 0, 1, 1), "0 1,0 0");
}
