#include <rytree_Utils/hidden_values.h>

#include "call_arguments.h"

TEST(HiddenValues, ResetByNodeId) {
  const auto tree_of = [](const std::string& a, const std::string& b, const char* use, const std::string& d) {
    return parse("<R><A _NodeID='10' DataID='3'>" + a + "</A><B _NodeID='13' DataID='4'>" + b +
                 "</B><C _NodeID='268435456' DataID='5' Use='" + use + "'><D _NodeID='10' DataID='3'>" + d +
                 "</D><K _NodeID='10' DataID='4'>2</K></C><E _NodeID='268435456' DataID='6' Use='x'/>"
                 "<F _NodeID='11' DataID='6'>7</F><G _NodeID='10' DataID='0'>8</G><H DataID='6'>9</H>"
                 "<I _NodeID='10'>1</I></R>");
  };
  RYXmlWrapperBase tree = tree_of("5", "x", "1", "6");
  Ints ids("3");
  EXPECT_EQ(rytree_GETN_reset_hidden_values(&tree, &ids, true), 2);
  EXPECT_EQ(text(tree), text(tree_of("0", "x", "1", "0")));
  Ints more("-1,0,3,4,5,6");
  EXPECT_EQ(rytree_GETN_reset_hidden_values(&tree, &more, false), 6);
  EXPECT_EQ(text(tree), text(tree_of("0", "0", "", "0")));
  EXPECT_EQ(with_bad(rytree_GETN_reset_hidden_values, &tree, &ids, true), "0 0,0 0");
}

// The list is read up to the first ID that is not smaller than the one looked for.
TEST(HiddenValues, SearchIsAScanThatGivesUp) {
  RYXmlWrapperBase node = parse("<R><A _NodeID='10' DataID='5'/></R>");
  const Rows<Text, int> cases = {{"", 0},        {"5", 1},     {"3,4", 0},       {"3,5", 1}, {"6,5", 0},
                                 {"4,1,2,5", 1}, {"5,5", 1},   {"4,6,1,5,7", 0}, {"5,9", 1}, {"1,2,4,6", 0},
                                 {"1,9,2,5", 0}, {"3,1,5", 1}, {"-5,5,1", 1}};
  for (const auto& [list, found] : cases) {
    Ints ids(list);
    EXPECT_EQ(rytree_GETN_reset_hidden_values(&node, &ids, false), found);
  }
}
