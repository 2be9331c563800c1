#include <rytree_Utils/theme_lookup.h>

#include <array>
#include <climits>

#include "call_arguments.h"

TEST(ThemeLookup, FindsByLowHalfOfEitherId) {
  RYXmlWrapperBase tree = parse(
      "<R DataID='1'><a DataID='74565'><b _NodeID='131073'/></a><c DataID='1'><d DataID='7'/><e/></c>"
      "<f _NodeID='5' DataID='6'/><g><h DataID='9'/></g><i DataID='-1'/><j _NodeID='6'/></R>");
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
  using R = Row<int, int, int, bool, int, const char*>;
  for (const auto& [id, index, depth, recursive, result, ends] :
       Rows{R{1, 1, 0, true, 1, "b"}, R{1, 3, 0, true, 1, "d"}, R{1, 4, 0, true, 0, "a"},
            R{1, 0, 0, true, 0, "R"}, R{2, 1, 0, true, 0, "R"}, R{3, 1, 2, true, 1, "g"},
            R{3, 1, 1, true, 0, "R"}, R{3, 1, 2, false, 0, "R"}}) {
    RYXmlWrapperBase tree = parse("<R><a DataID='1'><b/><c/><d/></a><e><f DataID='3'><g/></f></e></R>");
    EXPECT_EQ(rytree_theme_tree_get_node_by_index(&tree, &tree, id, index, depth, recursive), result);
    EXPECT_EQ(tag(tree), ends);
  }
}

TEST(ThemeLookup, ReadsRectangles) {
  const auto range = rytree_theme_tree_get_range_from_range_style;
  using R = Row<const char*, int, std::array<int, 4>>;
  for (const auto& [sides, result, expected] :
       Rows{R{"<x>9</x><Left>1</Left><Top>2</Top><RIGHT>3</RIGHT><bottom>4</bottom>", 1, {1, 2, 3, 4}},
            R{"<Left>1</Left><Left>5</Left><Top>2</Top><Right>3</Right><Bottom>4</Bottom>", 0, {5, 2, 3, 4}},
            R{"<Left>1</Left><Left>5</Left><Top>2</Top><Right>3</Right>", 1, {5, 2, 3, -7}},
            R{"<x><Left>1</Left></x><Left>1</Left><Top>t</Top><Right>3</Right><Bottom>4</Bottom>",
              0,
              {1, -7, 3, 4}}}) {
    RYXmlWrapperBase style = parse("<R>" + std::string(sides) + "</R>");
    std::array<int, 4> read = {-7, -7, -7, -7};
    EXPECT_EQ(range(&style, &read[0], &read[1], &read[2], &read[3]), result);
    EXPECT_EQ(read, expected);
  }
  RYXmlWrapperBase style = parse("<R><Left>1</Left><Top>2</Top><Right>3</Right><Bottom>4</Bottom></R>");
  int n = 0;
  EXPECT_EQ(with_bad(range, &style, &n, &n, &n, &n), "0 0,0,0,0,0");
}
