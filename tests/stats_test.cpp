#include <rytree_Utils/stats.h>

#include <sstream>

#include "call_arguments.h"

constexpr int kDoubles = 19;  // Mean to WeightSum, one after the other

TEST(Stats, ResultsAreUnderTheirTags) {
  std::istringstream tags(
      "N Missing Mean SD SEM LCL UCL Variance Sum Skewness Kurtosis UncorSumSq CorSumSq COV MAD SDx2 SDx3 "
      "GeoMean GeoSD Mode WeightSum");
  std::string wanted = "<Root><Results>";
  int place = 1;
  for (std::string name; tags >> name; ++place)
    wanted += "<" + name + ">" + std::to_string(place) + (place > 2 ? ".5" : "") + "</" + name + ">";
  wanted += "<Min>-1</Min><Max>1e+300</Max></Results></Root>";
  RYXmlWrapperBase tree = parse("<Root/>");
  RYXmlWrapperBase copy = parse("<Root/>");
  tagDescStatResults record{};
  record.N = 1;
  record.Missing = 2;
  for (int i = 0; i < kDoubles; ++i) (&record.Mean)[i] = i + 3.5;
  double ends[2] = {-1, 1e300};
  rytree_stats_get_set_stats_results(&tree, &record, &ends[0], &ends[1], 0);
  EXPECT_EQ(text(tree), wanted);
  record = {};
  ends[0] = ends[1] = 0;
  rytree_stats_get_set_stats_results(&tree, &record, &ends[0], &ends[1], 1);
  rytree_stats_get_set_stats_results(&copy, &record, &ends[0], &ends[1], 0);
  EXPECT_EQ(text(copy), wanted);
}

TEST(Stats, MissingResultsReadAsDefaults) {
  // A value that cannot be read leaves the field.
  RYXmlWrapperBase tree = parse("<Root><Results><N>x</N><SD>y</SD></Results></Root>");
  RYXmlWrapperBase empty = parse("<Root/>");
  RYXmlWrapperBase none;
  tagDescStatResults record{};
  record.N = 1;
  record.Missing = 2;
  record.SD = 4;
  double ends[2] = {5, 6};
  vctree_stats_get_set_stats_results(none, record, ends[0], ends[1], 1);
  EXPECT_EQ(record.Missing, 2);
  vctree_stats_get_set_stats_results(tree, record, ends[0], ends[1], 1);
  EXPECT_EQ(record.N, 1);
  EXPECT_EQ(record.Missing, 0);
  for (int i = 0; i < kDoubles; ++i) EXPECT_EQ((&record.Mean)[i], i == 1 ? 4 : kMissingValue) << i;
  EXPECT_EQ(ends[0], 5);
  EXPECT_EQ(ends[1], 6);
  rytree_stats_get_set_stats_results(&empty, &record, &ends[0], &ends[1], 1);
  with_bad(rytree_stats_get_set_stats_results, &empty, &record, &ends[0], &ends[1], 0);
  EXPECT_EQ(text(empty), "<Root><Results/></Root>");
}

TEST(Stats, ArraysAreMadeInBothDirections) {
  RYXmlWrapperBase tree = parse("<Root/>");
  for (const auto get_set : {rytree_stats_get_set_counts, rytree_stats_get_set_percentiles}) {
    Doubles array("1.5,-2");
    Doubles none("7");
    RYXmlWrapperBase made = parse("<Root/>");
    get_set(&made, &none, 1);
    EXPECT_NE(at(made, {0}).IsEmpty(), 0);
    EXPECT_EQ(list_of(none.array()), "");
    get_set(&tree, &array, 0);
    with_bad(get_set, &tree, &array, 1);
    with_bad(get_set, &tree, &none, 0);
    get_set(&tree, &none, 1);
    EXPECT_EQ(list_of(none.array()), "1.5,-2");
  }
  EXPECT_EQ(text(tree), "<Root><Counts>1.5 -2</Counts><Percentiles>1.5 -2</Percentiles></Root>");
}

TEST(Stats, BinsAndBoxes) {
  RYXmlWrapperBase tree = parse("<Root/>");
  const auto all = [&tree](double* v, int get) {
    rytree_stats_get_set_box_info(&tree, v, v + 1, v + 2, v + 3, v + 4, get);
    rytree_stats_get_set_whisker_info(&tree, v + 5, v + 6, get);
    rytree_stats_get_set_bin_info(&tree, v + 7, v + 8, v + 9, get);
    return text(tree);
  };
  double v[10] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  EXPECT_EQ(all(v, 1), "<Root><BoxChart><Box/><Whisker/></BoxChart></Root>") << "reading makes no bin";
  const std::string filled = all(v, 0);
  EXPECT_EQ(filled,
            "<Root><BoxChart><Box><Center>4</Center><Top>0</Top><TopX>1</TopX><Bottom>2</Bottom>"
            "<BottomX>3</BottomX></Box><Whisker><Top>5</Top><Bottom>6</Bottom></Whisker></BoxChart>"
            "<Bin><Min>7</Min><Max>8</Max><Size>9</Size></Bin></Root>");
  double back[10] = {};
  all(back, 1);
  EXPECT_EQ(std::vector<double>(back, back + 10), std::vector<double>(v, v + 10));
  double* const other = v + 9;
  with_bad(rytree_stats_get_set_box_info, &tree, other, other, other, other, other, 0);
  with_bad(rytree_stats_get_set_whisker_info, &tree, other, other, 0);
  with_bad(rytree_stats_get_set_bin_info, &tree, other, other, other, 0);
  EXPECT_EQ(text(tree), filled);
}

TEST(Stats, BoxNodesAndAutomaticBins) {
  RYXmlWrapperBase tree = parse("<Root><Bin><Auto>x</Auto></Bin></Root>");
  RYXmlWrapperBase out;
  EXPECT_EQ(rytree_stats_is_bin_auto(&tree), 1);
  tree = parse("<Root/>");
  EXPECT_EQ(rytree_stats_is_bin_auto(&tree), 1);
  EXPECT_EQ(rytree_stats_get_boxchart_box_node(&tree, &out), 1);
  EXPECT_EQ(tag(out), "Box");
  EXPECT_EQ(rytree_stats_get_boxchart_whisker_node(&tree, &out), 1);
  EXPECT_EQ(tag(out), "Whisker");
  EXPECT_EQ(with_bad(rytree_stats_get_boxchart_whisker_node, &tree, &out), "0 0,0 1");
  EXPECT_EQ(with_bad(vctree_stats_get_boxchart_whisker_node, tree, out), "0,1");
  rytree_stats_set_bin_auto(&tree, 0);
  with_bad(rytree_stats_set_bin_auto, &tree, 1);
  EXPECT_EQ(text(tree), "<Root><BoxChart><Box/><Whisker/></BoxChart><Bin><Auto>0</Auto></Bin></Root>");
  EXPECT_EQ(rytree_stats_is_bin_auto(&tree), 0);
  EXPECT_EQ(with_bad(rytree_stats_is_bin_auto, &tree), "0 1");
}
