// The results of descriptive statistics, written to a tree and read back.
#include <rytree_Utils.h>

#include "common/show.h"

int main() {
  RYXmlWrapperBase column = tree_from("<Signal/>");

  // [write]
  tagDescStatResults results{};
  double minimum = 1;
  double maximum = 5;
  vctree_stats_get_set_stats_results(column, results, minimum, maximum, /*get=*/1);  // all missing so far
  results.N = 5;
  results.Mean = 3;
  results.Variance = 2.5;
  vctree_stats_get_set_stats_results(column, results, minimum, maximum, /*get=*/0);
  double low = 0;
  double high = 6;
  double size = 2;
  vctree_stats_get_set_bin_info(column, low, high, size, /*get=*/0);
  vctree_stats_set_bin_auto(column, 0);
  // [write]
  show("written", column);

  // [read]
  tagDescStatResults back{};
  vctree_stats_get_set_stats_results(column, back, minimum, maximum, /*get=*/1);
  const bool has_median_deviation = back.MAD != kMissingValue;
  // [read]
  heading("read");
  std::printf("N %d, mean %g, from %g to %g, MAD %s\n", back.N, back.Mean, minimum, maximum,
              has_median_deviation ? "there" : "missing");
}
