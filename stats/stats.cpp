// The results of descriptive statistics in their branch.
#include <rytree_Utils/stats.h>

#include <type_traits>
#include <variant>

#include "frame/check_get.h"
#include "frame/host_arrays.h"

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

/// Finds a child by its tag; makes it if it is missing, but not to read it.
bool find_or_make(RYXmlWrapperBase& out, RYXmlWrapperBase& parent, const char* tag, int get) {
  return get != 0 ? find_child(out, parent, tag) : check_get_child(out, parent, tag);
}

/// Reads or writes the number in a child. False if there is no such child.
template <class Number>
bool get_set_number(RYXmlWrapperBase& parent, const char* tag, Number& value, int get) {
  RYXmlWrapperBase child;
  if (!find_or_make(child, parent, tag, get)) return false;
  child.NodeValue(value, get);
  return true;
}

template <class Number>
void get_set_field(RYXmlWrapperBase& results, const char* tag, Number& value, int get) {
  if (get_set_number(results, tag, value, get) || get == 0) return;
  if constexpr (std::is_same_v<Number, int>) {
    value = 0;
  } else {
    value = kMissingValue;
  }
}

void get_set_array(RYXmlWrapperBase& tree, const char* tag, CArray<double, double>& values, int get) {
  RYXmlWrapperBase node;
  if (check_get_child(node, tree, tag)) node.NodeValue(values, get);
}

void get_set_auto(RYXmlWrapperBase& tree, int& automatic, int get) {
  RYXmlWrapperBase bin;
  if (find_or_make(bin, tree, "Bin", get)) get_set_number(bin, "Auto", automatic, get);
}

int get_boxchart_part(RYXmlWrapperBase& tree, const char* tag, RYXmlWrapperBase& out) {
  RYXmlWrapperBase chart;
  return check_get_child(chart, tree, "BoxChart") && check_get_child(out, chart, tag) ? 1 : 0;
}

}  // namespace

void vctree_stats_get_set_stats_results(RYXmlWrapperBase& tree, tagDescStatResults& results, double& minimum,
                                        double& maximum, int get) {
  RYXmlWrapperBase node;
  if (!check_get_child(node, tree, "Results")) return;
  for (const Field& field : kFields) {
    std::visit([&](auto member) { get_set_field(node, field.tag, results.*member, get); }, field.member);
  }
  get_set_number(node, "Min", minimum, get);
  get_set_number(node, "Max", maximum, get);
}

void vctree_stats_get_set_counts(RYXmlWrapperBase& tree, CArray<double, double>& values, int get) {
  get_set_array(tree, "Counts", values, get);
}

void vctree_stats_get_set_percentiles(RYXmlWrapperBase& tree, CArray<double, double>& values, int get) {
  get_set_array(tree, "Percentiles", values, get);
}

int vctree_stats_get_boxchart_box_node(RYXmlWrapperBase& tree, RYXmlWrapperBase& out) {
  return get_boxchart_part(tree, "Box", out);
}

int vctree_stats_get_boxchart_whisker_node(RYXmlWrapperBase& tree, RYXmlWrapperBase& out) {
  return get_boxchart_part(tree, "Whisker", out);
}

void vctree_stats_get_set_bin_info(RYXmlWrapperBase& tree, double& minimum, double& maximum, double& size,
                                   int get) {
  RYXmlWrapperBase bin;
  if (!find_or_make(bin, tree, "Bin", get)) return;
  get_set_number(bin, "Min", minimum, get);
  get_set_number(bin, "Max", maximum, get);
  get_set_number(bin, "Size", size, get);
}

void vctree_stats_get_set_box_info(RYXmlWrapperBase& tree, double& top, double& topX, double& bottom,
                                   double& bottomX, double& center, int get) {
  RYXmlWrapperBase box;
  if (vctree_stats_get_boxchart_box_node(tree, box) == 0) return;
  get_set_number(box, "Center", center, get);
  get_set_number(box, "Top", top, get);
  get_set_number(box, "TopX", topX, get);
  get_set_number(box, "Bottom", bottom, get);
  get_set_number(box, "BottomX", bottomX, get);
}

void vctree_stats_get_set_whisker_info(RYXmlWrapperBase& tree, double& top, double& bottom, int get) {
  RYXmlWrapperBase whisker;
  if (vctree_stats_get_boxchart_whisker_node(tree, whisker) == 0) return;
  get_set_number(whisker, "Top", top, get);
  get_set_number(whisker, "Bottom", bottom, get);
}

int vctree_stats_is_bin_auto(RYXmlWrapperBase& tree) {
  int automatic = 1;
  get_set_auto(tree, automatic, 1);
  return automatic;
}

void vctree_stats_set_bin_auto(RYXmlWrapperBase& tree, int automatic) { get_set_auto(tree, automatic, 0); }

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

int rytree_stats_get_boxchart_box_node(RYXmlWrapperBase* tree, RYXmlWrapperBase* out) {
  return tree != nullptr && out != nullptr ? vctree_stats_get_boxchart_box_node(*tree, *out) : 0;
}

int rytree_stats_get_boxchart_whisker_node(RYXmlWrapperBase* tree, RYXmlWrapperBase* out) {
  return tree != nullptr && out != nullptr ? vctree_stats_get_boxchart_whisker_node(*tree, *out) : 0;
}

void rytree_stats_get_set_bin_info(RYXmlWrapperBase* tree, double* minimum, double* maximum, double* size,
                                   int get) {
  if (tree == nullptr || minimum == nullptr || maximum == nullptr || size == nullptr) return;
  vctree_stats_get_set_bin_info(*tree, *minimum, *maximum, *size, get);
}

void rytree_stats_get_set_box_info(RYXmlWrapperBase* tree, double* top, double* topX, double* bottom,
                                   double* bottomX, double* center, int get) {
  if (tree == nullptr || top == nullptr || topX == nullptr || bottom == nullptr || bottomX == nullptr ||
      center == nullptr) {
    return;
  }
  vctree_stats_get_set_box_info(*tree, *top, *topX, *bottom, *bottomX, *center, get);
}

void rytree_stats_get_set_whisker_info(RYXmlWrapperBase* tree, double* top, double* bottom, int get) {
  if (tree == nullptr || top == nullptr || bottom == nullptr) return;
  vctree_stats_get_set_whisker_info(*tree, *top, *bottom, get);
}

int rytree_stats_is_bin_auto(RYXmlWrapperBase* tree) {
  return tree != nullptr ? vctree_stats_is_bin_auto(*tree) : 0;
}

void rytree_stats_set_bin_auto(RYXmlWrapperBase* tree, int automatic) {
  if (tree != nullptr) vctree_stats_set_bin_auto(*tree, automatic);
}
