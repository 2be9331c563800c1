// The weighting of a fit.
#include <rytree_Utils/fitting.h>

#include <array>

#include "tests/tree_text.h"

namespace {

TEST(WeightMethods, HaveTheirNamesAndNeeds) {
  const Rows<int, const char*, std::array<int, 4>> rows = {
      {0, "No Weighting", {0, 0, 0, 0}},
      {1, "Instrumental", {1, 0, 0, 0}},
      {2, "Statistical", {0, 0, 0, 0}},
      {3, "Arbitrary Dataset", {1, 0, 0, 0}},
      {4, "Direct Weighting", {1, 0, 0, 0}},
      {5, "Variance ~ y^2", {0, 0, 0, 0}},
      {6, "Variance = a*y^b", {0, 1, 1, 0}},
      {7, "Variance = c^b+a*y^b", {0, 1, 1, 1}},
      {8, "Variance = a*y^b*c^(tlast-t)", {1, 1, 1, 1}},
      {9, "Variance ~ yfit", {0, 0, 0, 0}},
      {10, "Variance ~ yfit^2", {0, 0, 0, 0}},
      {11, "Variance = a*yfit^b", {0, 1, 1, 0}},
      {12, "Variance = c^b+a*yfit^b", {0, 1, 1, 1}},
      {13, "Variance = a*yfit^b*c^(tlast-t)", {1, 1, 1, 1}},
      {14, "Variance = [max(z,a)]^b", {0, 1, 1, 0}},
      {15, "", {0, 0, 0, 0}},
      {-1, "", {0, 0, 0, 0}},
  };
  CStringArray names;
  EXPECT_EQ(VCTreeGetFitterWeightStrings(99, nullptr, &names), 15);
  ASSERT_EQ(names.GetSize(), 15);
  for (const auto& [method, wanted, needs] : rows) {
    SCOPED_TRACE(method);
    const bool valid = method >= 0 && method < 15;
    CString name("x");
    std::array<int, 4> got = {7, 7, 7, 7};
    EXPECT_EQ(rytree_fitter_get_weight_mth_info(method, &name, &got[0], &got[1], &got[2], &got[3]),
              valid ? 1 : 0);
    EXPECT_STREQ(name, wanted);
    EXPECT_EQ(got, needs);
    if (valid) {
      EXPECT_STREQ(names[method], wanted);
    }
    CStringArray left;
    left.Add("old");
    EXPECT_EQ(VCTreeGetFitterWeightStrings(method, &name, &left), valid ? 15 : -1);
    EXPECT_EQ(left.GetSize(), valid ? 15 : 0);
  }
  EXPECT_EQ(rytree_fitter_get_weight_mth_info(3, nullptr, nullptr, nullptr, nullptr, nullptr), 1);
}

// The expanded form that an update leaves.
std::string expanded(const char* parent, int method, std::array<int, 4> show, const char* combo,
                     const char* data, std::array<const char*, 3> parameters) {
  const auto value = [](const char* tag, std::string attributes, const char* text) {
    return "<" + std::string(tag) + attributes +
           (*text != 0 ? ">" + std::string(text) + "</" + tag + ">" : "/>");
  };
  const auto shown = [&](int i) {
    return " Show=\"" + std::to_string(show[static_cast<std::size_t>(i)]) + "\"";
  };
  return "<P" + std::string(parent) + ">" + "<WeightMethod _NodeID=\"11\" Show=\"0\">" +
         std::to_string(method) + "</WeightMethod>" +
         value("WeightData",
               " _NodeID=\"13\" Label=\"Data\" Combo=\"" + std::string(combo) +
                   "\" _ACTION_OBJECT_ID=\"1010\"" + shown(0),
               data) +
         value("WeightA", " _NodeID=\"14\" Label=\"a\"" + shown(1), parameters[0]) +
         value("WeightB", " _NodeID=\"14\" Label=\"b\"" + shown(2), parameters[1]) +
         value("WeightC", " _NodeID=\"14\" Label=\"c\"" + shown(3), parameters[2]) + "</P>";
}

TEST(WeightNode, FollowsItsMethod) {
  RYXmlWrapperBase tree = parse("<P Combo=\"A|B\"/>");
  double a = 1.5;
  double b = 2;
  double c = -3;
  struct Step {
    int method;
    const char* data;
    bool parameters;
    int check_same, disable;
    int result;
    unsigned long change;
    std::string tree;
  };
  const std::string done =
      expanded(" DisableWeightMethod=\"1\"", 8, {1, 1, 1, 1}, "A|B", "col", {"1.5", "2", "-3"});
  const Step steps[] = {
      {8, "col", true, 1, 1, 1, 0, done},
      {8, "no", true, 1, 1, 0, 9, done},
      {0, nullptr, false, 1, 0, 1, 1,
       expanded(" DisableWeightMethod=\"0\"", 0, {0, 0, 0, 0}, "", "col", {"1.5", "2", "-3"})},
      {6, "d2", false, 0, 0, 1, 2,
       expanded(" DisableWeightMethod=\"0\"", 6, {0, 1, 1, 0}, "", "d2", {"1.5", "2", "-3"})},
      {11, nullptr, false, 0, 0, 1, 0,
       expanded(" DisableWeightMethod=\"0\"", 11, {0, 1, 1, 0}, "", "d2", {"1.5", "2", "-3"})},
      {15, "x", true, 0, 5, 0, 9,
       expanded(" DisableWeightMethod=\"5\"", 11, {0, 1, 1, 0}, "", "d2", {"1.5", "2", "-3"})},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.method);
    unsigned long change = 9;
    double* const p[3] = {step.parameters ? &a : nullptr, step.parameters ? &b : nullptr,
                          step.parameters ? &c : nullptr};
    EXPECT_EQ(vctree_update_fitter_data_weight_node(tree, step.method, change, step.data, p[0], p[1], p[2],
                                                    step.check_same, step.disable),
              step.result);
    EXPECT_EQ(change, step.change);
    EXPECT_EQ(text(tree), step.tree);
  }
}

TEST(WeightNode, TakesOverWhatIsThere) {
  // A stored method that is no number is not method 0.
  RYXmlWrapperBase tree = parse(
      "<P><WeightMethod _NodeID=\"3\">x</WeightMethod><WeightA _NodeID=\"5\" Label=\"old\">7</WeightA></P>");
  unsigned long change = 9;
  EXPECT_EQ(vctree_update_fitter_data_weight_node(tree, 0, change, nullptr, nullptr, nullptr, nullptr, 1, 0),
            1);
  EXPECT_EQ(change, 1u);
  EXPECT_EQ(text(at(tree, {0})), "<WeightMethod _NodeID=\"3\" Show=\"0\">0</WeightMethod>");
  EXPECT_EQ(text(at(tree, {1})), "<WeightA _NodeID=\"5\" Label=\"a\" Show=\"0\">7</WeightA>");
  RYXmlWrapperBase none;
  change = 9;
  EXPECT_EQ(vctree_update_fitter_data_weight_node(none, 0, change, nullptr, nullptr, nullptr, nullptr, 0, 0),
            0);
  EXPECT_EQ(change, 9u);
}

TEST(WeightNode, ConvertsBothWays) {
  RYXmlWrapperBase compact = parse(
      "<W WeightMethod=\"7\" Weight_A=\"0.5\" Weight_C=\"4\" Combo=\"one\" "
      "DisableWeightMethod=\"1\">src</W>");
  RYXmlWrapperBase wide = parse("<P/>");
  EXPECT_EQ(vctree_fitter_data_weight_node_compact_to_expanded(wide, compact), 1);
  EXPECT_EQ(text(wide), expanded(" Label=\"Weighting\" DisableWeightMethod=\"1\"", 7, {0, 1, 1, 1}, "one",
                                 "src", {"0.5", "0", "4"}));
  RYXmlWrapperBase back = parse("<Other Combo=\"keep\"/>");
  EXPECT_EQ(vctree_fitter_data_weight_node_expanded_to_compact(back, wide), 1);
  EXPECT_EQ(
      text(back),
      "<Other Combo=\"keep\" WeightMethod=\"7\" Weight_A=\"0.5\" Weight_B=\"0\" Weight_C=\"4\">src</Other>");

  RYXmlWrapperBase bad = parse("<W WeightMethod=\"20\" Combo=\"c\"/>");
  RYXmlWrapperBase half = parse("<P/>");
  EXPECT_EQ(vctree_fitter_data_weight_node_compact_to_expanded(half, bad), 1);
  EXPECT_EQ(text(half),
            "<P Label=\"Weighting\" Combo=\"c\" DisableWeightMethod=\"0\"><WeightMethod _NodeID=\"11\" "
            "Show=\"0\"/></P>");

  RYXmlWrapperBase poor = parse("<P><WeightB>x</WeightB><WeightMethod>3</WeightMethod></P>");
  RYXmlWrapperBase small = parse("<W Weight_B=\"9\">old</W>");
  EXPECT_EQ(vctree_fitter_data_weight_node_expanded_to_compact(small, poor), 1);
  EXPECT_EQ(text(small), "<W Weight_B=\"9\" WeightMethod=\"3\"/>");
  EXPECT_EQ(text(poor),
            "<P><WeightB>x</WeightB><WeightMethod>3</WeightMethod><WeightData/><WeightA/><WeightC/></P>");

  RYXmlWrapperBase none;
  EXPECT_EQ(vctree_fitter_data_weight_node_compact_to_expanded(none, compact), 0);
  EXPECT_EQ(vctree_fitter_data_weight_node_compact_to_expanded(half, none), 0);
  EXPECT_EQ(vctree_fitter_data_weight_node_expanded_to_compact(small, none), 0);
  EXPECT_EQ(text(small), "<W Weight_B=\"9\" WeightMethod=\"3\"/>");
}

TEST(WeightNode, ExtractsByTag) {
  const Rows<const char*, const char*, bool> rows = {
      {"<W WeightMethod=\"3\" Weight_A=\"1\" Weight_B=\"2\"/>", nullptr, true},
      {"<W WeightMethod=\"3\" Weight_A=\"1\" Weight_B=\"2\"/>", "", true},
      {"<X WeightMethod=\"3\" Weight_A=\"1\" Weight_B=\"2\"/>", "W", true},
      {"<W WeightMethod=\"3\"/>", "X", false},
      {"<w WeightMethod=\"3\"/>", nullptr, false},
  };
  for (const auto& [xml, tag, wanted] : rows) {
    RYXmlWrapperBase node = parse(xml);
    int method = 8;
    double p[3] = {7, 7, 7};
    EXPECT_EQ(vctree_extract_weight_info(node, tag, &method, &p[0], &p[1], &p[2]), wanted ? 1 : 0) << xml;
    EXPECT_EQ(method, wanted ? 3 : 8);
    EXPECT_EQ(p[0], wanted ? 1 : 7);
    EXPECT_EQ(p[1], wanted ? 2 : 7);
    EXPECT_EQ(p[2], wanted ? 0 : 7);
    EXPECT_EQ(vctree_extract_weight_info(node, tag, nullptr, nullptr, nullptr, nullptr), wanted ? 1 : 0);
  }
}

}  // namespace
