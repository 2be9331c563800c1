#include <rytree_Utils/weighting.h>

#include "call_arguments.h"

namespace {

TEST(WeightMethods, NamesAndNeeds) {
  CString listed;
  CStringArray names;
  for (int method = -1; method < 16; ++method) {
    CString name("x");
    int n[4] = {7, 7, 7, 7};
    const int found = rytree_fitter_get_weight_mth_info(method, &name, &n[0], &n[1], &n[2], &n[3]);
    listed.AppendFormat("%s %d%d%d%d %d; ", name.GetString(), n[0], n[1], n[2], n[3], found);
    names.Add("old");
    EXPECT_EQ(VCTreeGetFitterWeightStrings(method, &name, &names), found != 0 ? 15 : -1);
    EXPECT_EQ(names.GetSize(), found * 15);
    EXPECT_STREQ(found != 0 ? names[method] : "", name);
  }
  EXPECT_EQ(
      listed,
      " 0000 0; No Weighting 0000 1; Instrumental 1000 1; Statistical 0000 1; Arbitrary Dataset 1000 1; "
      "Direct Weighting 1000 1; Variance ~ y^2 0000 1; Variance = a*y^b 0110 1; "
      "Variance = c^b+a*y^b 0111 1; Variance = a*y^b*c^(tlast-t) 1111 1; Variance ~ yfit 0000 1; "
      "Variance ~ yfit^2 0000 1; Variance = a*yfit^b 0110 1; Variance = c^b+a*yfit^b 0111 1; "
      "Variance = a*yfit^b*c^(tlast-t) 1111 1; Variance = [max(z,a)]^b 0110 1;  0000 0; ");
  EXPECT_EQ(rytree_fitter_get_weight_mth_info(3, nullptr, nullptr, nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(VCTreeGetFitterWeightStrings(99, nullptr, &names), 15);
  EXPECT_STREQ(names[14], "Variance = [max(z,a)]^b");
}

// The expanded form that an update leaves; `show` is of the data and the three parameters.
std::string expanded(Text parent, int method, Text show, Text combo, Text data, Text a, Text b, Text c) {
  CString xml;
  xml.Format(
      "<P %s><WeightMethod _NodeID='11' Show='0'>%d</WeightMethod><WeightData _NodeID='13' Label='Data' "
      "Combo='%s' _ACTION_OBJECT_ID='1010' Show='%c'>%s</WeightData><WeightA _NodeID='14' Label='a' "
      "Show='%c'>%s</WeightA><WeightB _NodeID='14' Label='b' Show='%c'>%s</WeightB><WeightC _NodeID='14' "
      "Label='c' Show='%c'>%s</WeightC></P>",
      parent, method, combo, show[0], data, show[1], a, show[2], b, show[3], c);
  return text(parse(xml.GetString()));
}

// The result and the change; `all` gives all three parameters.
std::string update(RYXmlWrapperBase& node, int method, Text data, bool all, int check_same, int disable) {
  double p[3] = {1.5, 2, -3};
  unsigned long change = 9;
  const int result = vctree_update_fitter_data_weight_node(node, method, change, data, all ? &p[0] : nullptr,
                                                           all ? &p[1] : nullptr, all ? &p[2] : nullptr,
                                                           check_same, disable);
  return std::to_string(result) + " " + std::to_string(change);
}

TEST(WeightNode, FollowsItsMethod) {
  RYXmlWrapperBase tree = parse("<P Combo='A|B'/>");
  // The arguments, the result; then the method, what is shown, the combo and the data.
  using R = Row<int, Text, bool, int, int, Text, int, Text, Text, Text>;
  for (const auto& [given, with, all, check_same, disable, result, method, show, combo, data] :
       Rows{R{8, "col", true, 1, 1, "1 0", 8, "1111", "A|B", "col"},
            R{8, "no", true, 1, 1, "0 9", 8, "1111", "A|B", "col"},
            R{0, nullptr, false, 1, 0, "1 1", 0, "0000", "", "col"},
            R{6, "d2", false, 0, 0, "1 2", 6, "0110", "", "d2"},
            R{11, nullptr, false, 0, 0, "1 0", 11, "0110", "", "d2"},
            R{15, "x", true, 0, 5, "0 9", 11, "0110", "", "d2"}}) {
    EXPECT_EQ(update(tree, given, with, all, check_same, disable), result);
    const std::string parent = "DisableWeightMethod='" + std::to_string(disable) + "'";
    EXPECT_EQ(text(tree), expanded(parent.c_str(), method, show, combo, data, "1.5", "2", "-3"));
  }
  // A text in place of a method is not method 0.
  tree =
      parse("<P><WeightMethod _NodeID='3'>x</WeightMethod><WeightA _NodeID='5' Label='old'>7</WeightA></P>");
  EXPECT_EQ(update(tree, 0, nullptr, false, 1, 0), "1 1");
  EXPECT_EQ(text(at(tree, {0})), "<WeightMethod _NodeID=\"3\" Show=\"0\">0</WeightMethod>");
  EXPECT_EQ(text(at(tree, {1})), "<WeightA _NodeID=\"5\" Label=\"a\" Show=\"0\">7</WeightA>");
  tree = dead_node();
  EXPECT_EQ(update(tree, 0, nullptr, false, 0, 0), "0 9");
}

TEST(WeightNode, ConvertedBothWays) {
  const auto expand = vctree_fitter_data_weight_node_compact_to_expanded;
  const auto compact = vctree_fitter_data_weight_node_expanded_to_compact;
  const std::string wide =
      expanded("Label='Weighting' DisableWeightMethod='1'", 7, "0111", "one", "src", "0.5", "0", "4");
  RYXmlWrapperBase source;
  RYXmlWrapperBase target;
  // The source, and the target before and after; the last source gets the nodes that it lacks.
  using R = Row<std::string, Text, std::string>;
  for (const auto& [from, before, after] :
       Rows{R{"<W WeightMethod='7' Weight_A='0.5' Weight_C='4' Combo='one' DisableWeightMethod='1'>src</W>",
              "<P/>", wide},
            R{wide, "<W Combo='c'/>",
              "<W Combo='c' WeightMethod='7' Weight_A='0.5' Weight_B='0' Weight_C='4'>src</W>"},
            R{"<W WeightMethod='20' Combo='c'/>", "<P/>",
              "<P Label='Weighting' Combo='c' DisableWeightMethod='0'><WeightMethod _NodeID='11' "
              "Show='0'/></P>"},
            R{"<P><WeightB>x</WeightB><WeightMethod>3</WeightMethod></P>", "<W Weight_B='9'>old</W>",
              "<W Weight_B='9' WeightMethod='3'/>"}}) {
    source = parse(from);
    target = parse(before);
    EXPECT_EQ((tag(target) == "P" ? expand : compact)(target, source), 1);
    EXPECT_EQ(text(target), text(parse(after)));
  }
  EXPECT_EQ(text(source),
            "<P><WeightB>x</WeightB><WeightMethod>3</WeightMethod><WeightData/><WeightA/><WeightC/></P>");
  EXPECT_EQ(with_bad(compact, target, source), "1,0");
  EXPECT_EQ(with_bad(expand, source, target), "0,0");
  EXPECT_EQ(text(target), "<W Weight_B=\"9\" WeightMethod=\"3\"/>");
}

TEST(WeightNode, ExtractedByTag) {
  const std::string values = " WeightMethod='3' Weight_A='1' Weight_B='2'/>";
  using R = Row<std::string, Text, int, int, Text>;
  for (const auto& [xml, tag, result, found, wanted] :
       Rows{R{"<W" + values, nullptr, 1, 3, "1,2,0"}, R{"<W/>", "", 1, 0, "0,0,0"},
            R{"<X" + values, "W", 1, 3, "1,2,0"}, R{"<W" + values, "X", 0, 8, "7,7,7"},
            R{"<w" + values, nullptr, 0, 8, "7,7,7"}}) {
    RYXmlWrapperBase node = parse(xml);
    int method = 8;
    std::array<double, 3> p = {7, 7, 7};
    EXPECT_EQ(vctree_extract_weight_info(node, tag, &method, &p[0], &p[1], &p[2]), result);
    EXPECT_EQ(method, found);
    EXPECT_EQ(list_of(p), wanted);
    vctree_extract_weight_info(node, tag, nullptr, nullptr, nullptr, nullptr);
  }
}

}  // namespace
