// The settings of a fit: start values of its parameters, and the weighting of its data.
#include <rytree_Utils.h>

#include <initializer_list>

#include "common/show.h"

namespace {

// [start values]
void set_values(RYXmlWrapperBase& parameters, int vectorId, std::initializer_list<double> numbers) {
  RYXmlWrapperBase vector;
  rytree_find_node(&parameters, &vector, "DataID", vectorId, /*recursive=*/false, 0, -1);
  HostDoubleArray values;
  for (const double number : numbers) values.array().Add(number);
  rytree_value_from_vec_double_to_tree_sub_nodes(&values, &vector);
}
// [start values]

void show_values(RYXmlWrapperBase& parameters, const char* tag) {
  RYXmlWrapperBase vector;
  parameters.FindChild(tag, vector, 1);
  show(tag, vector);
}

}  // namespace

int main() {
  // [parameters]
  constexpr int kValues = 13000;
  constexpr int kLowerBounds = 7000;
  RYXmlWrapperBase parameters = tree_from("<Parameters/>");
  rytree_nlsf_add_params_node_DataID(&parameters, /*count=*/2);  // amplitude and decay time
  set_values(parameters, kValues, {12.5, 0.75});
  set_values(parameters, kLowerBounds, {0, kMissingValue});
  // [parameters]
  show_values(parameters, "Values");
  show_values(parameters, "LowerBounds");

  // [read]
  HostDoubleArray bounds;
  bounds.array().Add(-100);  // what counts where the tree has no value
  bounds.array().Add(-100);
  RYXmlWrapperBase vector;
  parameters.FindChild("LowerBounds", vector, 1);
  if (!rytree_nlf_set_double_param_from_user_params_setting(&vector, &bounds, /*block=*/0)) return 1;
  // [read]
  heading("bounds");
  std::printf("%g %g\n", bounds.array()[0], bounds.array()[1]);

  // [weight]
  RYXmlWrapperBase weight = tree_from(R"(<W WeightMethod="6" Weight_A="0.5" Weight_B="2"/>)");
  RYXmlWrapperBase branch = tree_from("<Signal/>");
  vctree_fitter_data_weight_node_compact_to_expanded(branch, weight);
  // [weight]
  show("compact", weight);
  show("expanded", branch);
}
