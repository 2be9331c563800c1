// Statistics results in their branch.
#include <rytree_Utils/stats.h>

#include <cstring>

#include "tests/tree_text.h"

namespace {

tagDescStatResults numbered() {
  tagDescStatResults record{};
  record.N = 1;
  record.Missing = 2;
  double* const first = &record.Mean;
  for (int i = 0; i < 19; ++i) first[i] = i + 3.5;
  return record;
}

TEST(Stats, ResultsStandUnderTheirTags) {
  const char* const tags[] = {"N",        "Missing",  "Mean",     "SD",       "SEM",      "LCL",
                              "UCL",      "Variance", "Sum",      "Skewness", "Kurtosis", "UncorSumSq",
                              "CorSumSq", "COV",      "MAD",      "SDx2",     "SDx3",     "GeoMean",
                              "GeoSD",    "Mode",     "WeightSum"};
  std::string wanted = "<Root><Results>";
  int place = 1;
  for (const char* const name : tags) {
    wanted +=
        "<" + std::string(name) + ">" + std::to_string(place) + (place > 2 ? ".5" : "") + "</" + name + ">";
    ++place;
  }
  wanted += "<Min>-1</Min><Max>1e+300</Max></Results></Root>";
  RYXmlWrapperBase tree = parse("<Root/>");
  tagDescStatResults record = numbered();
  double minimum = -1;
  double maximum = 1e300;
  rytree_stats_get_set_stats_results(&tree, &record, &minimum, &maximum, 0);
  EXPECT_EQ(text(tree), wanted);

  tagDescStatResults back{};
  double low = 0;
  double high = 0;
  rytree_stats_get_set_stats_results(&tree, &back, &low, &high, 1);
  EXPECT_EQ(std::memcmp(&back, &record, sizeof back), 0);
  EXPECT_EQ(low, -1);
  EXPECT_EQ(high, 1e300);
}

TEST(Stats, MissingResultsReadAsDefaults) {
  RYXmlWrapperBase tree = parse("<Root/>");
  tagDescStatResults record = numbered();
  double low = 5;
  double high = 6;
  vctree_stats_get_set_stats_results(tree, record, low, high, 1);
  EXPECT_EQ(text(tree), "<Root><Results/></Root>");
  EXPECT_EQ(record.N, 0);
  EXPECT_EQ(record.Missing, 0);
  for (int i = 0; i < 19; ++i) EXPECT_EQ((&record.Mean)[i], kMissingValue) << i;
  EXPECT_EQ(low, 5);
  EXPECT_EQ(high, 6);

  tree = parse("<Root><Results><N>x</N><SD>y</SD><Mode>-1.23456789e-300</Mode></Results></Root>");
  record = numbered();
  vctree_stats_get_set_stats_results(tree, record, low, high, 1);
  EXPECT_EQ(record.N, 1) << "a value that cannot be read leaves the field";
  EXPECT_EQ(record.SD, 4.5);
  EXPECT_EQ(record.Mode, kMissingValue);

  RYXmlWrapperBase none;
  record = numbered();
  vctree_stats_get_set_stats_results(none, record, low, high, 1);
  EXPECT_EQ(record.N, 1);
  rytree_stats_get_set_stats_results(&tree, nullptr, &low, &high, 1);
  rytree_stats_get_set_stats_results(nullptr, &record, &low, &high, 0);
}

TEST(Stats, ArraysAreMadeInBothDirections) {
  const auto counts = [](RYXmlWrapperBase& tree, HostDoubleArray& array, int get) {
    rytree_stats_get_set_counts(&tree, &array, get);
    rytree_stats_get_set_percentiles(&tree, &array, get);
  };
  RYXmlWrapperBase tree = parse("<Root/>");
  HostDoubleArray array;
  array.array().Add(1.5);
  counts(tree, array, 1);
  EXPECT_EQ(text(tree), "<Root><Counts/><Percentiles/></Root>");
  EXPECT_EQ(array.array().GetSize(), 0);
  array.array().Add(1.5);
  array.array().Add(-2);
  counts(tree, array, 0);
  EXPECT_EQ(text(tree), "<Root><Counts>1.5 -2</Counts><Percentiles>1.5 -2</Percentiles></Root>");
  HostIntArray ints;
  rytree_stats_get_set_counts(&tree, &ints, 0);
  rytree_stats_get_set_percentiles(nullptr, &array, 0);
  HostDoubleArray back;
  counts(tree, back, 1);
  ASSERT_EQ(back.array().GetSize(), 2);
  EXPECT_EQ(back.array()[1], -2);
}

TEST(Stats, BinsAndBoxes) {
  RYXmlWrapperBase tree = parse("<Root/>");
  double v[5] = {1, 2, 3, 4, 5};
  rytree_stats_get_set_bin_info(&tree, &v[0], &v[1], &v[2], 1);
  EXPECT_EQ(text(tree), "<Root/>") << "reading makes no bin";
  EXPECT_EQ(rytree_stats_is_bin_auto(&tree), 1);
  EXPECT_EQ(rytree_stats_is_bin_auto(nullptr), 0);
  rytree_stats_get_set_bin_info(&tree, &v[0], &v[1], &v[2], 0);
  rytree_stats_set_bin_auto(&tree, 0);
  EXPECT_EQ(text(tree), "<Root><Bin><Min>1</Min><Max>2</Max><Size>3</Size><Auto>0</Auto></Bin></Root>");
  EXPECT_EQ(rytree_stats_is_bin_auto(&tree), 0);
  RYXmlWrapperBase odd = parse("<Root><Bin><Auto>x</Auto></Bin></Root>");
  EXPECT_EQ(rytree_stats_is_bin_auto(&odd), 1);

  tree = parse("<Root/>");
  rytree_stats_get_set_box_info(&tree, &v[0], &v[1], &v[2], &v[3], &v[4], 1);
  rytree_stats_get_set_whisker_info(&tree, &v[0], &v[1], 1);
  EXPECT_EQ(text(tree), "<Root><BoxChart><Box/><Whisker/></BoxChart></Root>");
  EXPECT_EQ(v[4], 5);
  rytree_stats_get_set_box_info(&tree, &v[0], &v[1], &v[2], &v[3], &v[4], 0);
  rytree_stats_get_set_whisker_info(&tree, &v[0], &v[1], 0);
  EXPECT_EQ(text(tree),
            "<Root><BoxChart><Box><Center>5</Center><Top>1</Top><TopX>2</TopX><Bottom>3</Bottom><BottomX>4</"
            "BottomX></Box>"
            "<Whisker><Top>1</Top><Bottom>2</Bottom></Whisker></BoxChart></Root>");
  double back[5] = {};
  rytree_stats_get_set_box_info(&tree, &back[0], &back[1], &back[2], &back[3], &back[4], 1);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(back[i], v[i]) << i;
  double ends[2] = {};
  rytree_stats_get_set_whisker_info(&tree, &ends[0], &ends[1], 1);
  EXPECT_EQ(ends[0], 1);
  EXPECT_EQ(ends[1], 2);
  const std::string before = text(tree);
  for (int i = 0; i < 5; ++i) {
    const auto but = [&](int at) { return at == i ? nullptr : &v[at]; };
    rytree_stats_get_set_box_info(&tree, but(0), but(1), but(2), but(3), but(4), 0);
    if (i < 3) rytree_stats_get_set_bin_info(&tree, but(0), but(1), but(2), 0);
    if (i < 2) rytree_stats_get_set_whisker_info(&tree, but(0), but(1), 0);
  }
  rytree_stats_set_bin_auto(nullptr, 1);
  EXPECT_EQ(text(tree), before) << "a null pointer";
  RYXmlWrapperBase out;
  RYXmlWrapperBase none;
  EXPECT_EQ(rytree_stats_get_boxchart_box_node(&tree, &out), 1);
  EXPECT_EQ(tag(out), "Box");
  EXPECT_EQ(vctree_stats_get_boxchart_whisker_node(none, out), 0);
  EXPECT_EQ(rytree_stats_get_boxchart_whisker_node(&tree, nullptr), 0);
}

}  // namespace
