#include <rytree_Utils/theme_lookup.h>

#include <array>
#include <climits>

#include "call_arguments.h"

TEST(ThemeLookup, FindsByLowHalfOfEitherId) {
  RYXmlWrapperBase tree = parse_ids(
      "<R #1><a #74565><b@131073/></a><c #1><d #7/><e/></c><f@5 #6/><g><h #9/></g><i #-1/><j@6/></R>");
  // Only the low half of a node's ID counts, so none is as large as 0x12345. A branch uses up depth (7), a
  // node without an ID has none (0).
  using R = Row<int, int, bool, const char*>;
  for (const auto& [id, depth, recursive, found] :
       Rows{R{0x2345, 0, false, "a"}, R{0x12345, 9, true, ""}, R{1, 9, true, "b"}, R{1, 0, true, "c"},
            R{1, 9, false, "c"}, R{5, 0, false, "f"}, R{6, 0, false, "f"}, R{7, 1, true, ""},
            R{7, 2, true, "d"}, R{0xFFFF, 0, false, "i"}, R{0, INT_MAX, true, ""}, R{5, -1, false, ""}}) {
    RYXmlWrapperBase out;
    EXPECT_EQ(rytree_theme_tree_get_node_by_id(&out, &tree, id, depth, recursive), *found != '\0');
    EXPECT_EQ(tag(out), found);
  }
  EXPECT_EQ(with_bad(rytree_theme_tree_get_node_by_id, &tree, &tree, 1, 9, true), "0 1,0 0");
}

TEST(ThemeLookup, FindsChildrenByIndex) {
  for (const auto& [id, index, depth, recursive, result, ends] :
       Rows{Row{1, 1, 0, true, 1, "b"}, Row{1, 3, 0, true, 1, "d"}, Row{1, 4, 0, true, 0, "a"},
            Row{1, 0, 0, true, 0, "R"}, Row{2, 1, 0, true, 0, "R"}, Row{3, 1, 2, true, 1, "g"},
            Row{3, 1, 1, true, 0, "R"}, Row{3, 1, 2, false, 0, "R"}}) {
    RYXmlWrapperBase tree = parse_ids("<R><a #1><b/><c/><d/></a><e><f #3><g/></f></e></R>");
    EXPECT_EQ(rytree_theme_tree_get_node_by_index(&tree, &tree, id, index, depth, recursive), result);
    EXPECT_EQ(tag(tree), ends);
  }
}

TEST(ThemeLookup, ReadsRectangles) {
  const auto range = rytree_theme_tree_get_range_from_range_style;
  for (const auto& [sides, result, expected] : rows<3>(R"(
      <x>9</x><Left>1</Left><Top>2</Top><RIGHT>3</RIGHT><bottom>4</bottom>                   | 1 | 1,2,3,4
      <Left>1</Left><Left>5</Left><Top>2</Top><Right>3</Right><Bottom>4</Bottom>             | 0 | 5,2,3,4
      <Left>1</Left><Left>5</Left><Top>2</Top><Right>3</Right>                               | 1 | 5,2,3,-7
      <x><Left>1</Left></x><Left>1</Left><Top>t</Top><Right>3</Right><Bottom>4</Bottom>      | 0 | 1,-7,3,4)")) {
    RYXmlWrapperBase style = parse("<R>" + sides + "</R>");
    std::array<int, 4> read = {-7, -7, -7, -7};
    EXPECT_EQ(range(&style, &read[0], &read[1], &read[2], &read[3]), std::stoi(result));
    EXPECT_EQ(list_of(read), expected);
  }
  RYXmlWrapperBase style = parse("<R><Left>1</Left><Top>2</Top><Right>3</Right><Bottom>4</Bottom></R>");
  int n = 0;
  EXPECT_EQ(with_bad(range, &style, &n, &n, &n, &n), "0 0,0,0,0,0");
}
