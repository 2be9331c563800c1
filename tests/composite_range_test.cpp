#include <rytree_Utils/composite_range.h>

#include <climits>

#include "call_arguments.h"

namespace {

constexpr int kNone = -99;

int number_of(const RYXmlWrapperBase& node, Text attribute) {
  int read = kNone;
  node.GetPropertyValue(attribute, read);
  return read;
}

// The tags and texts of all children.
std::string texts(RYXmlWrapperBase node) {
  std::string result;
  for (node.FirstChild(node); node.IsNodeValid() != 0; node.NextSibling(node))
    result += tag(node) + own_text(node) + " ";
  return result;
}

TEST(CompositeRange, Layouts) {
  // The type, the two IDs of a range, and its sub-nodes, without their action IDs.
  for (const auto& [type, id, action, layout] : rows<4>(R"(
      2 | 44 | 1001 | <X@55 Label='X' #51$/><Y@55 Label='Y' #52$/><ED@55 Label='Error' #53$ Show='0'/>
      3 | 52 | 1002 | <X@55 Label='X' #51$/><Y@55 Label='Y' #52$/><Z@55 Label='Z' #54$/>
      4 | 58 | 1003 | <X@55 Label='X' #51$/><Y@55 Label='Y' #52$/><Y@55 Label='Y2' #52$/>
      7 | -1 | 1001 | <X@55 Label='X' #51$/><Y@55 Label='Y' #52$/><ED@55 Label='Error' #53$ Show='0'/>\
          <EI@55 Label='Error Index' #56$/>
      -2147483648 | -1 | 1000 | <X@55 Label='X' #51$/><Y@55 Label='Y' #52$/>)")) {
    RYXmlWrapperBase tree = parse("<T/>");
    EXPECT_EQ(rytree_create_composite_range_node(&tree, &tree, "C", "L", 2, std::stoi(type), "D"), 1);
    CString inside(layout.c_str());
    inside.Replace("$", " _ACTION_OBJECT_ID='1004'");
    CString xml;
    for (int n = 1; n <= 2; ++n)
      xml.AppendFormat("<Range%d@%s Label='Range %d' Branch='0' ^%d _ACTION_OBJECT_ID='%s'>%s</Range%d>", n,
                       id.c_str(), n, 112 + 16 * n, action.c_str(), inside.GetString(), n);
    EXPECT_EQ(text(tree), text(parse_ids("<C@" + id + " Label='L' Data='D'>" + xml.GetString() + "</C>")));
  }
}

TEST(CompositeRange, CountsAndBadInput) {
  RYXmlWrapperBase tree = parse("<T/>");
  RYXmlWrapperBase out;
  const auto create = rytree_create_composite_range_node;
  EXPECT_EQ(with_bad(create, &out, &tree, "1", nullptr, 1, 7, nullptr), "0 0,0 0,0,0,0");
  EXPECT_EQ(with_bad(vctree_add_subrange_to_composite_range, out, out, 8, 9, 2), "0,0");
  EXPECT_EQ(with_bad(rytree_set_composite_subrange_values, &out, "1", "2", "3", 4), "0 0,0,0,0");
  vctree_reenum_subranges_in_range_tree(out, 1);
  EXPECT_EQ(create(&out, &tree, "C", nullptr, INT_MAX, 7, ""), 0);
  EXPECT_EQ(create(&out, &tree, "C", nullptr, -1, 7, ""), 1);
  EXPECT_EQ(text(tree), "<T><C/></T>");

  EXPECT_EQ(create(&out, &tree, "C", "", 2043, 3, nullptr), 1);
  for (const auto& [index, id] : Rows<int, int>{{1, 144}, {2039, 32752}, {2040, 32768}, {2042, 32768}})
    EXPECT_EQ(number_of(at(out, {index}), "RepeatID"), id);
}

TEST(CompositeRange, RepeatNumberAfterASibling) {
  for (const auto& [before, id] :
       Rows<Text, int>{{"160", 176}, {"32767", 32783}, {"32768", 32768}, {"0", kNone}, {"x", kNone}}) {
    RYXmlWrapperBase parent = parse("<C><Range1/><Range3/></C>");
    at(parent, {1}).SetPropertyValue("RepeatID", before);
    RYXmlWrapperBase range = dead_node();
    EXPECT_EQ(vctree_add_subrange_to_composite_range(range, parent, 8, 9, 0), 1);
    EXPECT_EQ(range, at(parent, {2}));
    EXPECT_EQ(number_of(range, "RepeatID"), id);
  }
}

TEST(CompositeRange, InteractiveOptions) {
  // Options of the parent and the range, "Show" of "ED", and what is handed down.
  for (const auto& [above, own, show, down] :
       Rows{Row{kNone, kNone, 0, kNone}, Row{32, kNone, kNone, kNone}, Row{kNone, 32, kNone, kNone},
            Row{0, 32, 0, kNone}, Row{64, 0x8020, 0, kNone}, Row{0x8000, kNone, 0, 0x8000},
            Row{0x8021, 7, kNone, 0x8000}, Row{kNone, 0x8020, kNone, 0x8000}}) {
    RYXmlWrapperBase tree = parse("<C><R><Old/></R></C>");
    RYXmlWrapperBase range = at(tree, {0});
    if (above != kNone) tree.SetPropertyValue("InteractiveOptions", above);
    if (own != kNone) range.SetPropertyValue("InteractiveOptions", own);
    vctree_add_subrange_to_composite_range(range, tree, -1, 1, 2);
    EXPECT_EQ(number_of(at(range, {3}), "Show"), show);
    EXPECT_EQ(number_of(range, "InteractiveOptions"), down > 0 ? down : own);
    for (const int child : {0, 3}) EXPECT_EQ(number_of(at(range, {child}), "InteractiveOptions"), down);
  }
}

TEST(CompositeRange, Renumbered) {
  for (const auto& [before, rename, after] : rows<3>(R"(
      <C>t</C> | 0 | <C>t</C>
      <C>t</C> | 1 | <C>t</C>
      <C><Range2 ^9/><A Label='a'/></C> | 0 | <C><Range2 ^128 Label='Range 1'/><A Label='Range 2' ^144/></C>
      <C K='1'>t<Range3@8 A='1'>u<X #5>v</X></Range3><Range1/></C> | -1 | \
          <C K='1'>t<Range1@8 A='1' Label='Range 1' ^128>u<X #5>v</X></Range1><Range2 Label='Range 2' ^144/></C>)")) {
    RYXmlWrapperBase tree = parse_ids(before);
    vctree_reenum_subranges_in_range_tree(tree, std::stoi(rename));
    EXPECT_EQ(text(tree), text(parse_ids(after)));
  }
}

TEST(CompositeRange, ValuesWrittenAndRead) {
  // `reset` 2: nothing is written. The texts of the children after it, and those read from "abc".
  for (const auto& [xml, type, combine, reset, result, after, values] :
       Rows{Row{"<R>t<X>8</X></R>", 2, 0, 1, 1, "X1 Y2 ED3 ", "123"},
            Row{"<R/>", 4, 1, 1, 1, "X1 Y2,3 Y ", "12,3"}, Row{"<R/>", 7, 0, 1, 0, "X1 Y2 ED EI ", "12c"},
            Row{"<R><Y>8</Y><Q>9</Q></R>", 4, 0, 0, 1, "Y2 Q3 X1 Y Y ", "123"},
            Row{"<R><X>8</X><Z>9</Z></R>", 3, 1, 0, 1, "X1 Z3 X Y2 Z ", "123"},
            Row{"<R><Z/><X/><Y>2</Y></R>", 4, 0, 2, 1, "Z X Y2 ", "2c"},
            Row{"<R><X>1</X><ED/></R>", 2, 0, 2, 0, "X1 ED ", "1bc"},
            Row{"<R><Y>1</Y><Z/></R>", 0, 0, 2, 0, "Y1 Z ", "abc"}}) {
    RYXmlWrapperBase range = parse(xml);
    if (reset != 2) {
      EXPECT_EQ(vctree_set_composite_subrange_values(range, "1", "2", "3", 9, type, combine, reset), result);
    }
    CString x("a");
    CString y("b");
    CString third("c");
    EXPECT_EQ(vctree_get_composite_subrange_values(range, x, y, third, type), result);
    EXPECT_EQ(x + y + third, values);
    EXPECT_EQ(texts(range), after);
  }
}

TEST(CompositeRange, PlainWrite) {
  RYXmlWrapperBase tree = parse("<C><R RepeatID='1'/><R A='1'>t<X>8</X><X>9</X></R></C>");
  RYXmlWrapperBase range = at(tree, {1});
  EXPECT_EQ(rytree_set_composite_subrange_values(&range, "1", nullptr, "3", 5), 0);
  EXPECT_EQ(text(range), text(parse_ids("<R A='1' ^17 _ACTION_OBJECT_ID='1000'>"
                                        "<X@55 Label='X' #51 _ACTION_OBJECT_ID='1004'>1</X>"
                                        "<Y@55 Label='Y' #52 _ACTION_OBJECT_ID='1004'/></R>")));
}

}  // namespace
