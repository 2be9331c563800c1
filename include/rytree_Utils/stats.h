// The results of descriptive statistics in their branch of a tree. Every operation moves one group of results
// between the caller's variables and nodes with fixed tags below `tree`: `get` nonzero reads, 0 writes.
// Writing makes missing nodes. A variable whose node is missing or cannot be read keeps its value, unless
// said otherwise, so give it one before a read. Nothing reports an error: with an invalid `tree` nothing
// changes, and a node that cannot be made is passed over. The plain forms do nothing (and give 0) if a
// pointer is null or an object does not hold a double array.
//
//     Results   N, Missing (int), Mean … WeightSum, Min, Max (double)
//     Counts, Percentiles (double arrays)
//     Bin       Min, Max, Size (double), Auto (int)
//     BoxChart  Box (Center, Top, TopX, Bottom, BottomX), Whisker (Top, Bottom)
#pragma once

#include <rytree_Utils/missing_value.h>
#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// The results, named by the tags of their nodes. Minimum and maximum are passed separately.
struct tagDescStatResults {
  int N;
  int Missing;
  double Mean, SD, SEM, LCL, UCL, Variance, Sum, Skewness, Kurtosis, UncorSumSq, CorSumSq, COV, MAD, SDx2,
      SDx3, GeoMean, GeoSD, Mode, WeightSum;
};

/// Order: `tree`, `out`. Sets `out` to the child "Box", or "Whisker", of "BoxChart"; both nodes are made if
/// missing. 1, or 0 if one cannot be made: `out` is then untouched if that is "BoxChart", as for an invalid
/// `tree`, and invalid if it is the child.
RYTREE_API int vctree_stats_get_boxchart_box_node(RYXmlWrapperBase& tree, RYXmlWrapperBase& out);
RYTREE_API int vctree_stats_get_boxchart_whisker_node(RYXmlWrapperBase& tree, RYXmlWrapperBase& out);

/// "Results", which is made in both directions. A read of a field whose node is missing gives 0 for N and
/// Missing and kMissingValue for a double; a missing "Min" or "Max" leaves its variable alone. With an
/// invalid tree nothing changes.
RYTREE_API void vctree_stats_get_set_stats_results(RYXmlWrapperBase& tree, tagDescStatResults& results,
                                                   double& minimum, double& maximum, int get);

/// "Counts" and "Percentiles", which are made in both directions. A read replaces what the array held: a node
/// without text gives an empty array, and so does one that the read has made. A text that is not a list of
/// numbers leaves the array alone.
RYTREE_API void vctree_stats_get_set_counts(RYXmlWrapperBase& tree, CArray<double, double>& values, int get);
RYTREE_API void vctree_stats_get_set_percentiles(RYXmlWrapperBase& tree, CArray<double, double>& values,
                                                 int get);

/// "Bin"; reading makes nothing.
RYTREE_API void vctree_stats_get_set_bin_info(RYXmlWrapperBase& tree, double& minimum, double& maximum,
                                              double& size, int get);

/// "Box" and "Whisker", which are made in both directions; their values only by writing.
RYTREE_API void vctree_stats_get_set_box_info(RYXmlWrapperBase& tree, double& top, double& topX,
                                              double& bottom, double& bottomX, double& center, int get);
RYTREE_API void vctree_stats_get_set_whisker_info(RYXmlWrapperBase& tree, double& top, double& bottom,
                                                  int get);

/// "Auto" of "Bin": its value, or 1 if it is missing or not an int or `tree` is invalid. Reading makes
/// nothing.
RYTREE_API int vctree_stats_is_bin_auto(RYXmlWrapperBase& tree);
RYTREE_API void vctree_stats_set_bin_auto(RYXmlWrapperBase& tree, int automatic);

extern "C" {

RYTREE_API int rytree_stats_get_boxchart_box_node(RYXmlWrapperBase* tree, RYXmlWrapperBase* out);
RYTREE_API int rytree_stats_get_boxchart_whisker_node(RYXmlWrapperBase* tree, RYXmlWrapperBase* out);
RYTREE_API void rytree_stats_get_set_stats_results(RYXmlWrapperBase* tree, tagDescStatResults* results,
                                                   double* minimum, double* maximum, int get);
RYTREE_API void rytree_stats_get_set_counts(RYXmlWrapperBase* tree, HostArrayObject* values, int get);
RYTREE_API void rytree_stats_get_set_percentiles(RYXmlWrapperBase* tree, HostArrayObject* values, int get);
RYTREE_API void rytree_stats_get_set_bin_info(RYXmlWrapperBase* tree, double* minimum, double* maximum,
                                              double* size, int get);
RYTREE_API void rytree_stats_get_set_box_info(RYXmlWrapperBase* tree, double* top, double* topX,
                                              double* bottom, double* bottomX, double* center, int get);
RYTREE_API void rytree_stats_get_set_whisker_info(RYXmlWrapperBase* tree, double* top, double* bottom,
                                                  int get);
/// 0 for a null pointer, where an invalid handle gives 1.
RYTREE_API int rytree_stats_is_bin_auto(RYXmlWrapperBase* tree);
RYTREE_API void rytree_stats_set_bin_auto(RYXmlWrapperBase* tree, int automatic);

}  // extern "C"
