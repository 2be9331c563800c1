// Bins and box charts.
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/stats.h>

#include "frame/tag_path.h"

namespace {

int get_boxchart_part(RYXmlWrapperBase& tree, const char* tag, RYXmlWrapperBase& out) {
  RYXmlWrapperBase chart;
  if (rytree_tree_check_get_node(&chart, &tree, "BoxChart", 0, nullptr, nullptr, 1) == 0) return 0;
  return rytree_tree_check_get_node(&out, &chart, tag, 0, nullptr, nullptr, 1);
}

}  // namespace

int vctree_stats_get_boxchart_box_node(RYXmlWrapperBase& tree, RYXmlWrapperBase& out) {
  return get_boxchart_part(tree, "Box", out);
}

int vctree_stats_get_boxchart_whisker_node(RYXmlWrapperBase& tree, RYXmlWrapperBase& out) {
  return get_boxchart_part(tree, "Whisker", out);
}

void vctree_stats_get_set_bin_info(RYXmlWrapperBase& tree, double& minimum, double& maximum, double& size,
                                   int get) {
  tmxfu_tree_node_double_value(tree, minimum, get, "Bin", "Min", nullptr);
  tmxfu_tree_node_double_value(tree, maximum, get, "Bin", "Max", nullptr);
  tmxfu_tree_node_double_value(tree, size, get, "Bin", "Size", nullptr);
}

void vctree_stats_get_set_box_info(RYXmlWrapperBase& tree, double& top, double& topX, double& bottom,
                                   double& bottomX, double& center, int get) {
  RYXmlWrapperBase box;
  if (vctree_stats_get_boxchart_box_node(tree, box) == 0) return;
  tmxfu_tree_node_double_value(box, center, get, "Center", nullptr);
  tmxfu_tree_node_double_value(box, top, get, "Top", nullptr);
  tmxfu_tree_node_double_value(box, topX, get, "TopX", nullptr);
  tmxfu_tree_node_double_value(box, bottom, get, "Bottom", nullptr);
  tmxfu_tree_node_double_value(box, bottomX, get, "BottomX", nullptr);
}

void vctree_stats_get_set_whisker_info(RYXmlWrapperBase& tree, double& top, double& bottom, int get) {
  RYXmlWrapperBase whisker;
  if (vctree_stats_get_boxchart_whisker_node(tree, whisker) == 0) return;
  tmxfu_tree_node_double_value(whisker, top, get, "Top", nullptr);
  tmxfu_tree_node_double_value(whisker, bottom, get, "Bottom", nullptr);
}

int vctree_stats_is_bin_auto(RYXmlWrapperBase& tree) {
  int automatic = 1;
  tmxfu_tree_node_int_value(tree, automatic, 1, "Bin", "Auto", nullptr);
  return automatic;
}

void vctree_stats_set_bin_auto(RYXmlWrapperBase& tree, int automatic) {
  tmxfu_tree_node_int_value(tree, automatic, 0, "Bin", "Auto", nullptr);
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
