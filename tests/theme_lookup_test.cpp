#include <rytree_Utils/theme_lookup.h>

#include <climits>

#include "tree_text.h"

namespace {

TEST(ThemeLookup, FindsByLowHalfOfEitherId) {
  RYXmlWrapperBase tree = parse(
      "<R DataID='1'><a DataID='74565'><b _NodeID='131073'/></a><c DataID='1'><d DataID='7'/><e/></c>"
      "<f _NodeID='5' DataID='6'/><g><h DataID='9'/></g><i DataID='-1'/><j _NodeID='6'/></R>");
  const Rows<int, int, bool, const char*> rows = {
      {0x2345, 0, false, "a"},
      {0x12345, 9, true, ""},  // only the low half of a node's ID counts, and that
                               // is never so large
      {1, 9, true, "b"},       // by node ID, before the one by DataID
      {1, 0, true, "c"},       // b is too deep
      {1, 9, false, "c"},
      {5, 0, false, "f"},
      {6, 0, false, "f"},
      {7, 1, true, ""},  // a used up the depth
      {7, 2, true, "d"},
      {9, 2, true, ""},
      {9, 3, true, "h"},
      {0xFFFF, 0, false, "i"},  // not one of those without an ID
      {-1, 9, true, ""},
      {0, INT_MAX, true, ""},
      {5, -1, false, ""},
      {5, INT_MIN, true, ""},
  };
  for (const auto& [id, depth, recursive, found] : rows) {
    RYXmlWrapperBase out;
    EXPECT_EQ(rytree_theme_tree_get_node_by_id(&out, &tree, id, depth, recursive), *found != '\0' ? 1 : 0)
        << id;
    EXPECT_EQ(tag(out), found) << id << ' ' << depth;
  }
  RYXmlWrapperBase dead = dead_node();
  RYXmlWrapperBase out = tree;
  EXPECT_EQ(rytree_theme_tree_get_node_by_id(&out, &dead, 1, 9, true), 0);
  EXPECT_EQ(rytree_theme_tree_get_node_by_id(nullptr, &tree, 1, 9, true), 0);
  EXPECT_EQ(rytree_theme_tree_get_node_by_id(&out, nullptr, 1, 9, true), 0);
  EXPECT_EQ(rytree_theme_tree_get_node_by_id(&out, &out, 1, 9, true), 1);
  EXPECT_EQ(tag(out), "b");
}

TEST(ThemeLookup, FindsChildrenByIndex) {
  const Rows<int, int, int, bool, int, const char*> rows = {
      {1, 1, 0, true, 1, "b"},       {1, 3, 0, true, 1, "d"}, {1, 4, 0, true, 0, "a"},
      {1, INT_MAX, 0, true, 0, "a"}, {1, 0, 0, true, 0, "R"}, {1, INT_MIN, 0, true, 0, "R"},
      {2, 1, 0, true, 0, "R"},       {3, 1, 2, true, 1, "g"}, {3, 1, 1, true, 0, "R"},
      {3, 1, 2, false, 0, "R"},
  };
  for (const auto& [id, index, depth, recursive, result, ends] : rows) {
    RYXmlWrapperBase tree = parse("<R><a DataID='1'><b/><c/><d/></a><e><f DataID='3'><g/></f></e></R>");
    EXPECT_EQ(rytree_theme_tree_get_node_by_index(&tree, &tree, id, index, depth, recursive), result);
    EXPECT_EQ(tag(tree), ends);
  }
  EXPECT_EQ(rytree_theme_tree_get_node_by_index(nullptr, nullptr, 1, 1, 0, true), 0);
}

TEST(ThemeLookup, ReadsRectangles) {
  const Rows<const char*, int, std::tuple<int, int, int, int>> rows = {
      {"<R><Left>1</Left><Top>2</Top><x>9</x><RIGHT>3</RIGHT><bottom>4</bottom></R>", 1, {1, 2, 3, 4}},
      {"<R><Left>1</Left><Left>5</Left><Top>2</Top><Right>3</Right><Bottom>4</Bottom></R>", 0, {5, 2, 3, 4}},
      {"<R><Left>1</Left><Left>5</Left><Top>2</Top><Right>3</Right></R>", 1, {5, 2, 3, -7}},
      {"<R><Left>1</Left><Top>t</Top><Right>3</Right><Bottom>4</Bottom></R>", 0, {1, -7, 3, 4}},
      {"<R><x><Left>1</Left><Top>2</Top><Right>3</Right><Bottom>4</Bottom></x></R>", 0, {-7, -7, -7, -7}},
  };
  for (const auto& [xml, result, sides] : rows) {
    RYXmlWrapperBase style = parse(xml);
    int left = -7;
    int top = -7;
    int right = -7;
    int bottom = -7;
    EXPECT_EQ(rytree_theme_tree_get_range_from_range_style(&style, &left, &top, &right, &bottom), result)
        << xml;
    EXPECT_EQ(std::make_tuple(left, top, right, bottom), sides) << xml;
    EXPECT_EQ(rytree_theme_tree_get_range_from_range_style(&style, &left, &top, nullptr, &bottom), 0);
    EXPECT_EQ(rytree_theme_tree_get_range_from_range_style(nullptr, &left, &top, &right, &bottom), 0);
  }
}

}  // namespace
