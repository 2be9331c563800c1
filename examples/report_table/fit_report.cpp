#include "fit_report.h"

#include <rytree_Utils.h>

#include <initializer_list>

namespace {

constexpr int kErrorBars = 2;  // the type of ranges with x, y and error

/// How one dependent variable of one data set is weighted.
struct Weighting {
  const char* tag;
  int method;
  const char* data;
  double a, b, c;
};
constexpr Weighting kWeightings[] = {{"Signal1", 8, "D", 0.25, 1.5, 0.875},
                                     {"Background1", 0, "", 0, 0, 0},
                                     {"Signal2", 6, "", 0.125, 2, 0},
                                     {"Background2", 1, "H", 0, 0, 0}};
constexpr int kVariablesPerSet = 2;  // dependent variables

RYXmlWrapperBase add(RYXmlWrapperBase& parent, const char* tag, const char* label) {
  RYXmlWrapperBase node;
  rytree_tree_check_get_node(&node, &parent, tag, /*nodeId=*/-1, "Label", label, /*find=*/1);
  return node;
}

void add_ranges(RYXmlWrapperBase& report) {
  RYXmlWrapperBase composite;
  rytree_create_composite_range_node(&composite, &report, "Data", "Input Data", /*rangeCount=*/2, kErrorBars,
                                     nullptr);
  RYXmlWrapperBase range;
  composite.GetChild(range, 0);
  rytree_set_composite_subrange_values(&range, "A[1:50]", "B[1:50]", "C[1:50]", kErrorBars);
  composite.GetChild(range, 1);
  rytree_set_composite_subrange_values(&range, "E[1:80]", "F[1:80]", "G[1:80]", kErrorBars);
}

void add_weights(RYXmlWrapperBase& report) {
  RYXmlWrapperBase weights = add(report, "Weights", "Weights");
  for (const Weighting& weighting : kWeightings) {
    RYXmlWrapperBase node = add(weights, weighting.tag, weighting.tag);
    double a = weighting.a;
    double b = weighting.b;
    double c = weighting.c;
    unsigned long change = 0;
    vctree_update_fitter_data_weight_node(node, weighting.method, change, weighting.data, &a, &b, &c,
                                          /*checkSame=*/0, /*disable=*/0);
  }
}

void set_parameters(RYXmlWrapperBase& parameters, const char* tag, std::initializer_list<double> numbers) {
  HostDoubleArray values;
  for (const double number : numbers) values.array().Add(number);
  RYXmlWrapperBase vector;
  if (parameters.FindChild(tag, vector, 1) != 0)
    rytree_value_from_vec_double_to_tree_sub_nodes(&values, &vector);
}

void add_parameters(RYXmlWrapperBase& report) {
  RYXmlWrapperBase parameters = add(report, "Parameters", "Parameters");
  rytree_nlsf_add_params_node_DataID(&parameters, 2);
  set_parameters(parameters, "Values", {12.5, 0.75});
  set_parameters(parameters, "LowerBounds", {0, 0});
  set_parameters(parameters, "Fixed", {0, 1});
}

void add_statistics(RYXmlWrapperBase& report) {
  RYXmlWrapperBase statistics = add(report, "Statistics", "Signal");
  tagDescStatResults results{};
  double minimum = 0;
  double maximum = 0;
  vctree_stats_get_set_stats_results(statistics, results, minimum, maximum, /*get=*/1);  // all are missing
  results.N = 5;
  results.Mean = 3;
  results.Variance = 2.5;
  results.Sum = 15;
  minimum = 1;
  maximum = 5;
  vctree_stats_get_set_stats_results(statistics, results, minimum, maximum, /*get=*/0);
  CArray<double, double> percentiles;
  for (const double percentile : {1.5, 3.0, 4.5}) percentiles.Add(percentile);
  vctree_stats_get_set_percentiles(statistics, percentiles, /*get=*/0);
}

/// The three weighting values of each dependent variable of a data set.
RYXmlWrapperBase weight_parameters(int set) {
  RYXmlWrapperBase parameters;
  parameters.CreateNew(0, nullptr);
  for (int i = 0; i < kVariablesPerSet; ++i) {
    const Weighting& weighting = kWeightings[set * kVariablesPerSet + i];
    for (double value : {weighting.a, weighting.b, weighting.c}) {
      RYXmlWrapperBase node;
      parameters.AddNode(node, "Value", -1);
      node.NodeValue(value, /*get=*/0);
    }
  }
  return parameters;
}

void add_table(RYXmlWrapperBase& report) {
  RYXmlWrapperBase table = add(report, "Table", "Input Data Table");
  HostStringArray independent;
  HostStringArray dependent;
  independent.array().Add("time");
  dependent.array().Add("signal");
  dependent.array().Add("background");
  for (int set = 0; set < 2; ++set) {
    HostIntArray methods;
    for (int i = 0; i < kVariablesPerSet; ++i)
      methods.array().Add(kWeightings[set * kVariablesPerSet + i].method);
    RYXmlWrapperBase parameters = weight_parameters(set);
    report_update_input_data_table(&table, set, /*sets=*/1, kVariablesPerSet, /*independents=*/1, &dependent,
                                   &independent, /*reserved=*/0, &methods, &parameters, /*xyz=*/0);
  }
}

}  // namespace

RYXmlWrapperBase make_fit_report() {
  RYXmlWrapperBase report;
  report.CreateNew(0, "Report");
  add_ranges(report);
  add_weights(report);
  add_parameters(report);
  add_statistics(report);
  add_table(report);
  return report;
}
