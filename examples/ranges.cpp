// A composite range: building it, taking a range out of the middle, and walking over what is left.
#include <rytree_Utils.h>

#include "common/show.h"

int main() {
  constexpr int kErrorBars = 2;  // ranges with x, y and error
  RYXmlWrapperBase plot = tree_from("<Plot/>");

  // [build]
  RYXmlWrapperBase data;
  rytree_create_composite_range_node(&data, &plot, "Data", "Input", /*rangeCount=*/3, kErrorBars, nullptr);
  const char* const columns[][3] = {{"A", "B", "C"}, {"A", "D", "E"}, {"A", "F", "G"}};
  RYXmlWrapperBase range;
  data.FirstChild(range);
  for (const auto& [x, y, error] : columns) {
    rytree_set_composite_subrange_values(&range, x, y, error, kErrorBars);
    range.NextSibling(range);
  }
  // [build]
  show("built", plot);

  // [remove]
  data.FindChild("Range2", range, 1);
  data.RemoveChild(range, nullptr);
  vctree_reenum_subranges_in_range_tree(data, /*renameTags=*/1);
  // [remove]
  show("after", plot);

  heading("walk");
  // [walk]
  for (SubRangeNodes& nodes : RangeTreeRanges(data)) {
    for (RYXmlWrapperBase& node : nodes)
      std::printf("%s=%s ", tag_of(node).GetString(), text_of(node).GetString());
    std::printf("\n");
  }
  // [walk]
}
