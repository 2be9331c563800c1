#include <rytree_Utils/auto_support.h>

#include "call_arguments.h"

TEST(AutoSupport, StringsMade) {
  CString out;
  EXPECT_EQ(vctree_create_auto_support_string(out, 1, "A", 2), 1);
  vctree_create_auto_support_string(out, -3, out, -4);
  EXPECT_EQ(out, "-3|1|A|2|-4");
  vctree_create_auto_support_string(out, 0, nullptr, 0);
  EXPECT_EQ(out, "0|Auto|0");
}

TEST(AutoSupport, StringsRead) {
  // The result, the state, the label and the number.
  for (const auto& [string, expected] :
       Rows{Row{"1||-99999999999999999999", "1 1  -2147483648"}, Row{"5", "1 5 Auto 1"},
            Row{" -2x|\"a|b\"|y|4", "1 -2 \"a|b\" 0"}, Row{"", "0 77 old 77"},
            Row{"99999999999|A|-2", "1 2147483647 A -2"}, Row{"1|\"A|2", "0 77 old 77"}}) {
    int state = 77;
    int number = 77;
    CString label("old");
    const int result = vctree_parse_auto_support_string(string, state, label, number);
    CString read;
    read.Format("%d %d %s %d", result, state, label.GetString(), number);
    EXPECT_EQ(read, expected);
  }
}

TEST(AutoSupport, Set) {
  using R = Row<Text, int, Text, int, int, Text>;
  for (const auto& [before, state, label, number, result, after] :
       Rows{R{"<A/>", 1, nullptr, -1, 1, "<A Auto='1||1'/>"}, R{"<A/>", 0, "B", 3, 0, "<A/>"},
            R{"<A Auto='1|A|2'/>", -1, nullptr, -1, 1, "<A Auto='0|A|2'/>"},
            R{"<A Auto='0|A|2'/>", 1, "", -2, 1, "<A Auto='1||-2'/>"},
            R{"<A Auto='1|A|2'/>", 0, "B", 3, 0, "<A/>"},
            R{"<A Auto='1|A|2'/>", 2, "B", 3, 0, "<A Auto='1|A|2'/>"},
            R{"<A Auto='&quot;'/>", 1, nullptr, -1, 1, "<A Auto='1||1'/>"}}) {
    RYXmlWrapperBase node = parse(before);
    EXPECT_EQ(vctree_set_auto_support(node, state, label, number), result);
    EXPECT_EQ(text(node), text(parse(after)));
  }
  RYXmlWrapperBase node = parse("<A Auto='0|A|2'/>");
  EXPECT_EQ(rytree_set_auto_support(&node, 1), 1);
  EXPECT_EQ(text(node), "<A Auto=\"1|A|2\"/>");
}

TEST(AutoSupport, GetAndReset) {
  for (const auto& [before, state, label, number, reset] :
       Rows{Row{"<A/>", 0, "old", 77, "<A/>"}, Row{"<A Auto=''/>", 0, "old", 77, "<A Auto=''/>"},
            Row{"<A Auto='0|A|2'/>", -1, "A", 2, "<A Auto='0|A|2'/>"},
            Row{"<A Auto='1|A|2|3'/>", 1, "A", 2, "<A Auto='0|A|2'/>"},
            Row{"<A Auto='5'/>", 5, "Auto", 1, "<A Auto='0|Auto|1'/>"},
            Row{"<A Auto='1|A|-1'/>", 1, "A", -1, "<A Auto='0|A|-1'/>"}}) {
    RYXmlWrapperBase node = parse(before);
    CString label_read("old");
    int number_read = 77;
    EXPECT_EQ(vctree_get_auto_support(node, label_read, number_read), state);
    EXPECT_EQ(label_read, label);
    EXPECT_EQ(number_read, number);
    EXPECT_EQ(rytree_get_auto_support(&node), state);
    vctree_check_reset_auto_support(node);
    EXPECT_EQ(text(node), text(parse(reset)));
  }
}

TEST(AutoSupport, NoNode) {
  RYXmlWrapperBase node = parse("<A Auto='1' _EntireWorksheet='1'/>");
  EXPECT_EQ(with_bad(rytree_set_auto_support, &node, 1), "0 0");
  EXPECT_EQ(with_bad(rytree_get_auto_support, &node), "0 0");
  with_bad(rytree_composite_range_set_entire_worksheet_support, &node, 1);
  EXPECT_EQ(with_bad(rytree_composite_range_get_entire_worksheet_support, &node), "0 0");
}

TEST(EntireWorksheet, ThreeStates) {
  RYXmlWrapperBase node = parse("<A _EntireWorksheet='9'/>");
  EXPECT_EQ(rytree_composite_range_get_entire_worksheet_support(&node), -1);
  for (const auto& [state, xml, read] :
       Rows{Row{1, "<A _EntireWorksheet=\"1\"/>", 1}, Row{-1, "<A _EntireWorksheet=\"0\"/>", -1},
            Row{5, "<A _EntireWorksheet=\"0\"/>", -1}, Row{0, "<A/>", 0}}) {
    rytree_composite_range_set_entire_worksheet_support(&node, state);
    EXPECT_EQ(text(node), xml);
    EXPECT_EQ(rytree_composite_range_get_entire_worksheet_support(&node), read);
  }
}
