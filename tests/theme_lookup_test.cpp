#include <rytree_Utils/theme_lookup.h>

#include <array>
#include <climits>

#include "tree_text.h"

namespace {

TEST(ThemeLookup, FindsByLowHalfOfEitherId) {
  RYXmlWrapperBase tree = parse(
      "<R DataID='1'><a DataID='74565'><b _NodeID='131073'/></a><c DataID='1'><d DataID='7'/><e/></c>"
      "<f _NodeID='5' DataID='6'/><g><h DataID='9'/></g><i DataID='-1'/><j _NodeID='6'/></R>");
  // Only the low half of a node's ID counts, so none is as large as 0x12345. A branch uses up depth (7), a
  // node without an ID has none (0).
  const Rows<int, int, bool, const char*> rows = {
      {0x2345, 0, false, "a"}, {0x12345, 9, true, ""},  {1, 9, true, "b"},      {1, 0, true, "c"},
      {1, 9, false, "c"},      {5, 0, false, "f"},      {6, 0, false, "f"},     {7, 1, true, ""},
      {7, 2, true, "d"},       {0xFFFF, 0, false, "i"}, {0, INT_MAX, true, ""}, {5, -1, false, ""}};
  for (const auto& [id, depth, recursive, found] : rows) {
    RYXmlWrapperBase out;
    EXPECT_EQ(rytree_theme_tree_get_node_by_id(&out, &tree, id, depth, recursive), *found != '\0') << id;
    EXPECT_EQ(tag(out), found) << id << ' ' << depth;
  }
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_theme_tree_get_node_by_id(&dead, &dead, 1, 9, true) +
                rytree_theme_tree_get_node_by_id(nullptr, &tree, 1, 9, true) +
                rytree_theme_tree_get_node_by_id(&dead, nullptr, 1, 9, true),
            0);
}

TEST(ThemeLookup, FindsChildrenByIndex) {
  const Rows<int, int, int, bool, int, const char*> rows = {
      {1, 1, 0, true, 1, "b"}, {1, 3, 0, true, 1, "d"}, {1, 4, 0, true, 0, "a"}, {1, 0, 0, true, 0, "R"},
      {2, 1, 0, true, 0, "R"}, {3, 1, 2, true, 1, "g"}, {3, 1, 1, true, 0, "R"}, {3, 1, 2, false, 0, "R"}};
  for (const auto& [id, index, depth, recursive, result, ends] : rows) {
    RYXmlWrapperBase tree = parse("<R><a DataID='1'><b/><c/><d/></a><e><f DataID='3'><g/></f></e></R>");
    EXPECT_EQ(rytree_theme_tree_get_node_by_index(&tree, &tree, id, index, depth, recursive), result);
    EXPECT_EQ(tag(tree), ends);
  }
}

TEST(ThemeLookup, ReadsRectangles) {
  const auto range = rytree_theme_tree_get_range_from_range_style;
  const Rows<const char*, int, std::array<int, 4>> rows = {
      {"<x>9</x><Left>1</Left><Top>2</Top><RIGHT>3</RIGHT><bottom>4</bottom>", 1, {1, 2, 3, 4}},
      {"<Left>1</Left><Left>5</Left><Top>2</Top><Right>3</Right><Bottom>4</Bottom>", 0, {5, 2, 3, 4}},
      {"<Left>1</Left><Left>5</Left><Top>2</Top><Right>3</Right>", 1, {5, 2, 3, -7}},
      {"<x><Left>1</Left></x><Left>1</Left><Top>t</Top><Right>3</Right><Bottom>4</Bottom>",
       0,
       {1, -7, 3, 4}}};
  for (const auto& [sides, result, expected] : rows) {
    RYXmlWrapperBase style = parse("<R>" + std::string(sides) + "</R>");
    std::array<int, 4> read = {-7, -7, -7, -7};
    EXPECT_EQ(range(&style, &read[0], &read[1], &read[2], &read[3]), result) << sides;
    EXPECT_EQ(read, expected) << sides;
    int* const n = read.data();
    EXPECT_EQ(range(nullptr, n, n, n, n) + range(&style, nullptr, n, n, n) + range(&style, n, nullptr, n, n),
              0);
    EXPECT_EQ(range(&style, n, n, nullptr, n) + range(&style, n, n, n, nullptr), 0);
  }
}

}  // namespace
