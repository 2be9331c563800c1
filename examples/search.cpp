// Finding nodes by several attributes, counting them, and telling where one is.
#include <rytree_Utils.h>

#include "common/show.h"

int main() {
  RYXmlWrapperBase graph = tree_from(R"(
    <Graph>
      <Layer1><Curve Type="Line" Source="Book1"/><Curve Type="Scatter" Source="Book1"/></Layer1>
      <Layer2><Curve Type="Scatter" Source="Book2"/></Layer2>
    </Graph>)");
  show("graph", graph);

  // [find]
  HostStringArray names;
  HostStringArray wanted;
  names.array().Add("Type");
  wanted.array().Add("Scatter");
  names.array().Add("Source");
  wanted.array().Add("Book2");
  RYXmlWrapperBase curve;
  rytree_find_node_with_str_attr(&graph, &curve, &names, &wanted, /*recursive=*/1, /*index=*/0);
  // [find]

  // [place]
  CString path;
  const int level = rytree_get_level(&path, &curve, /*root=*/nullptr, /*stopAtEventRoot=*/0);
  const int row = rytree_get_row_number(&graph, path);
  // [place]
  heading("found");
  std::printf("%s, level %d, row %d\n", path.GetString(), level, row);

  const int scatter =
      rytree_count_items_by_attribute(&graph, "Type", "Scatter", /*countMissing=*/0, /*recursive=*/1);
  std::printf("%d scatter curves\n", scatter);
}
