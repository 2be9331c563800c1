#include <rytree_Utils/hidden_values.h>

#include <random>

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

TEST(HiddenValues, SearchIsAScanThatGivesUp) {
  std::mt19937 random(20240607);
  RYXmlWrapperBase node = parse("<R><A _NodeID='10'/></R>");
  RYXmlWrapperBase child = at(node, {0});
  for (int round = 0; round < 300; ++round) {
    CArray<int, int> list;
    for (int i = 0; i < round % 13; ++i) list.Add(static_cast<int>(random() % 10) + i * (round % 2));
    for (int id = 1; id < 24; ++id) {
      int place = 0;
      while (place < list.GetSize() && list[place] < id) ++place;
      child.SetDataID(id);
      ASSERT_EQ(vctree_GETN_reset_hidden_values(&node, &list, false),
                place < list.GetSize() && list[place] == id)
          << "round " << round << ", ID " << id;
    }
  }
}
