#include <rytree_Utils/auto_support.h>

#include <climits>

#include "tree_text.h"

namespace {

using Text = const char*;

RYXmlWrapperBase with_auto(Text value) {
  RYXmlWrapperBase node = parse("<A/>");
  if (value != nullptr) node.SetPropertyValue("Auto", value);
  return node;
}

CString auto_of(const RYXmlWrapperBase& node) {
  CString value("none");
  node.GetPropertyValue("Auto", value);
  return value;
}

TEST(AutoSupport, strings_made) {
  CString out;
  EXPECT_EQ(vctree_create_auto_support_string(out, 1, "A", 2), 1);
  vctree_create_auto_support_string(out, -3, out, -4);
  EXPECT_EQ(out, "-3|1|A|2|-4");
  vctree_create_auto_support_string(out, 0, nullptr, 0);
  EXPECT_EQ(out, "0|Auto|0");
}

TEST(AutoSupport, strings_read) {
  const Rows<Text, int, int, Text, int> rows = {
      {"1||-99999999999999999999", 1, 1, "", INT_MIN}, {"5", 1, 5, "Auto", 1},
      {" -2x|\"a|b\"|y|4", 1, -2, "\"a|b\"", 0},       {"", 0, 77, "old", 77},
      {"99999999999|A|-2", 1, INT_MAX, "A", -2},       {"1|\"A|2", 0, 77, "old", 77}};
  for (const auto& [string, result, state, label, number] : rows) {
    int state_read = 77;
    int number_read = 77;
    CString label_read("old");
    EXPECT_EQ(vctree_parse_auto_support_string(string, state_read, label_read, number_read), result);
    EXPECT_EQ(std::tie(state_read, label_read, number_read), std::make_tuple(state, CString(label), number));
  }
}

TEST(AutoSupport, set) {
  const Rows<Text, int, Text, int, int, Text> rows = {
      {nullptr, 1, nullptr, -1, 1, "1||1"}, {"1|A|2", -1, nullptr, -1, 1, "0|A|2"},
      {"0|A|2", 1, "", -2, 1, "1||-2"},     {"1|A|2", 0, "B", 3, 0, "none"},
      {"1|A|2", 2, "B", 3, 0, "1|A|2"},     {"\"", 1, nullptr, -1, 1, "1||1"}};
  for (const auto& [before, state, label, number, result, after] : rows) {
    RYXmlWrapperBase node = with_auto(before);
    EXPECT_EQ(vctree_set_auto_support(node, state, label, number), result);
    EXPECT_EQ(auto_of(node), after);
  }
}

TEST(AutoSupport, get_and_reset) {
  const Rows<Text, int, Text, int, Text> rows = {
      {nullptr, 0, "old", 77, "none"}, {"", 0, "old", 77, ""},          {"0|A|2", -1, "A", 2, "0|A|2"},
      {"1|A|2|3", 1, "A", 2, "0|A|2"}, {"5", 5, "Auto", 1, "0|Auto|1"}, {"1|A|-1", 1, "A", -1, "0|A|-1"}};
  for (const auto& [before, state, label, number, reset] : rows) {
    RYXmlWrapperBase node = with_auto(before);
    CString label_read("old");
    int number_read = 77;
    EXPECT_EQ(vctree_get_auto_support(node, label_read, number_read), state);
    EXPECT_TRUE(label_read == label && number_read == number && rytree_get_auto_support(&node) == state)
        << reset;
    vctree_check_reset_auto_support(node);
    EXPECT_EQ(auto_of(node), reset);
  }
  RYXmlWrapperBase node = with_auto("0|A|2");
  EXPECT_EQ(rytree_set_auto_support(&node, 1), 1);
  EXPECT_EQ(auto_of(node), "1|A|2");
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_set_auto_support(&dead, 1) + rytree_set_auto_support(nullptr, 1), 0);
  EXPECT_EQ(rytree_get_auto_support(&dead) + rytree_get_auto_support(nullptr), 0);
}

TEST(EntireWorksheet, three_states) {
  const Rows<int, Text, int> rows = {{1, "<A _EntireWorksheet=\"1\"/>", 1},
                                     {-1, "<A _EntireWorksheet=\"0\"/>", -1},
                                     {5, "<A _EntireWorksheet=\"0\"/>", -1},
                                     {0, "<A/>", 0}};
  RYXmlWrapperBase node = parse("<A _EntireWorksheet=\"9\"/>");
  EXPECT_EQ(rytree_composite_range_get_entire_worksheet_support(&node), -1);
  for (const auto& [state, xml, read] : rows) {
    rytree_composite_range_set_entire_worksheet_support(&node, state);
    EXPECT_EQ(text(node), xml);
    EXPECT_EQ(rytree_composite_range_get_entire_worksheet_support(&node), read);
  }
  rytree_composite_range_set_entire_worksheet_support(nullptr, 1);
  EXPECT_EQ(rytree_composite_range_get_entire_worksheet_support(nullptr), 0);
}

}  // namespace
