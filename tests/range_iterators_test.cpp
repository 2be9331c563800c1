#include <rytree_Utils/range_iterators.h>

#include "tree_text.h"

namespace {

// The texts of the sub-nodes, each range in brackets. "-": Get gave 0 and an invalid node, "0": it gave 0 and
// left the node alone, which ends the walk when it comes twice. Copies walk, after their originals went ahead.
std::string walked(RYXmlWrapperBase tree) {
  std::string result;
  RYXmlWrapperBase elsewhere = parse("<T><A><B/></A></T>");
  VCRangeTreeIterator ahead(tree);
  VCRangeTreeIterator ranges(elsewhere);
  ranges = VCRangeTreeIterator(ahead);
  ahead.Get(elsewhere);
  while (!result.ends_with("00")) {
    RYXmlWrapperBase node(tree);
    const bool found = ranges.Get(node) != 0;
    result += found ? "[" : node == tree ? "0" : "-";
    if (!found) continue;
    VCSubRangeTreeIterator sub_nodes(node);
    while (sub_nodes.Get(node) != 0) result += own_text(node);
    const RYXmlWrapperBase last(node);
    result += sub_nodes.Get(node) == 0 && node == last ? "]" : "?";
  }
  return result;
}

std::string looped(const RYXmlWrapperBase& tree) {
  std::string result;
  for (SubRangeNodes& range : RangeTreeRanges(tree)) {
    result += "[";
    for (RYXmlWrapperBase& node : range) result += own_text(node);
    result += "]";
  }
  return result;
}

TEST(RangeIterators, BothForms) {
  for (const auto& [xml, walk, loop] : rows<3>(R"(
      <T/> | 00 |
      <T><S/></T> | 00 |
      <T><S/><S/><X>1</X><Y>2</Y><S/><S/><s>2</s><SS>3</SS><S/></T> | [12][23]00 | [12][23]
      <T><X>1</X><R>2<X>9</X></R></T> | [12]00 | [12]
      <T><R><X>1</X></R><R/><S><X>2</X><Y>3</Y><S/><Y>9</Y></S></T> | [1]-[23]00 | [1][][23]
      <T><R><S/><X>9</X></R><R/></T> | []-00 | [][])")) {
    EXPECT_EQ(walked(parse(xml)), walk);
    EXPECT_EQ(looped(parse(xml)), loop);
  }
  for (RYXmlWrapperBase none : {RYXmlWrapperBase(), dead_node()}) {
    RYXmlWrapperBase out;
    EXPECT_EQ(VCRangeTreeIterator(none).Get(out), 0);
    EXPECT_EQ(VCSubRangeTreeIterator(none).Get(out), 0);
    EXPECT_EQ(looped(none), "");
  }
}

}  // namespace
