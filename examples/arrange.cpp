// Sorting children, moving one of them, and numbering.
#include <rytree_Utils.h>

#include "common/show.h"

int main() {
  RYXmlWrapperBase layers = tree_from(R"(
    <Layers>
      <Axes Order="3"><Grid/></Axes>
      <Curve Order="1"/>
      <Legend Order="2"/>
    </Layers>)");
  show("before", layers);

  // [sort]
  rytree_sort_children_by_int_attribute(&layers, "Order", /*ascending=*/1);
  // [sort]
  show("sorted", layers);

  // [move]
  const int children_only = kNodeLimitLevel | 0;  // level 0 is that of the direct children
  const int moved = rytree_move_node(&layers, /*from=*/2, /*to=*/0, children_only, /*attribute=*/nullptr);
  // [move]
  show("moved", layers);

  // [number]
  CString name;
  rytree_get_enum_node_name(&layers, &name, "Curve");
  RYXmlWrapperBase curve;
  layers.AddNode(curve, name, -1);
  // [number]
  show("added", layers);
  return moved == 1 ? 0 : 1;
}
