// Statistics results, counts and percentiles.
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/stats.h>

#include <variant>

#include "frame/host_arrays.h"
#include "frame/tag_path.h"

namespace {

using Record = tagDescStatResults;

struct Field {
  const char* tag;
  std::variant<int Record::*, double Record::*> member;
};

const Field kFields[] = {
    {"N", &Record::N},
    {"Missing", &Record::Missing},
    {"Mean", &Record::Mean},
    {"SD", &Record::SD},
    {"SEM", &Record::SEM},
    {"LCL", &Record::LCL},
    {"UCL", &Record::UCL},
    {"Variance", &Record::Variance},
    {"Sum", &Record::Sum},
    {"Skewness", &Record::Skewness},
    {"Kurtosis", &Record::Kurtosis},
    {"UncorSumSq", &Record::UncorSumSq},
    {"CorSumSq", &Record::CorSumSq},
    {"COV", &Record::COV},
    {"MAD", &Record::MAD},
    {"SDx2", &Record::SDx2},
    {"SDx3", &Record::SDx3},
    {"GeoMean", &Record::GeoMean},
    {"GeoSD", &Record::GeoSD},
    {"Mode", &Record::Mode},
    {"WeightSum", &Record::WeightSum},
};

void get_set_field(RYXmlWrapperBase& results, const char* tag, int& value, int get) {
  RYXmlWrapperBase child;
  if (get != 0 && results.FindChild(tag, child, 1) == 0) {
    value = 0;
  } else {
    tmxfu_tree_node_int_value(results, value, get, tag, nullptr);
  }
}

void get_set_field(RYXmlWrapperBase& results, const char* tag, double& value, int get) {
  RYXmlWrapperBase child;
  if (get != 0 && results.FindChild(tag, child, 1) == 0) {
    value = kMissingValue;
  } else {
    tmxfu_tree_node_double_value(results, value, get, tag, nullptr);
  }
}

void get_set_array(RYXmlWrapperBase& tree, const char* tag, CArray<double, double>& values, int get) {
  RYXmlWrapperBase node;
  if (tmxfu_tree_check_get_node(node, tree, tag, nullptr) != 0) node.NodeValue(values, get);
}

}  // namespace

void vctree_stats_get_set_stats_results(RYXmlWrapperBase& tree, tagDescStatResults& results, double& minimum,
                                        double& maximum, int get) {
  RYXmlWrapperBase node;
  if (tmxfu_tree_check_get_node(node, tree, "Results", nullptr) == 0) return;
  for (const Field& field : kFields) {
    std::visit([&](auto member) { get_set_field(node, field.tag, results.*member, get); }, field.member);
  }
  tmxfu_tree_node_double_value(tree, minimum, get, "Results", "Min", nullptr);
  tmxfu_tree_node_double_value(tree, maximum, get, "Results", "Max", nullptr);
}

void vctree_stats_get_set_counts(RYXmlWrapperBase& tree, CArray<double, double>& values, int get) {
  get_set_array(tree, "Counts", values, get);
}

void vctree_stats_get_set_percentiles(RYXmlWrapperBase& tree, CArray<double, double>& values, int get) {
  get_set_array(tree, "Percentiles", values, get);
}

void rytree_stats_get_set_stats_results(RYXmlWrapperBase* tree, tagDescStatResults* results, double* minimum,
                                        double* maximum, int get) {
  if (tree == nullptr || results == nullptr || minimum == nullptr || maximum == nullptr) return;
  vctree_stats_get_set_stats_results(*tree, *results, *minimum, *maximum, get);
}

void rytree_stats_get_set_counts(RYXmlWrapperBase* tree, HostArrayObject* values, int get) {
  CArray<double, double>* const array = open_doubles(values);
  if (tree != nullptr && array != nullptr) vctree_stats_get_set_counts(*tree, *array, get);
}

void rytree_stats_get_set_percentiles(RYXmlWrapperBase* tree, HostArrayObject* values, int get) {
  CArray<double, double>* const array = open_doubles(values);
  if (tree != nullptr && array != nullptr) vctree_stats_get_set_percentiles(*tree, *array, get);
}
