// Thinning a tree: which curves stay is decided by the texts below them.
#include <rytree_Utils.h>

#include "common/show.h"

int main() {
  constexpr int kCurve = 20;
  constexpr int kColumn = 21;
  RYXmlWrapperBase graph = tree_from(R"(
    <Graph>
      <Title>Decay</Title>
      <Curve1 DataID="20"><X DataID="21">time</X><Y DataID="21">signal</Y></Curve1>
      <Curve2 DataID="20"><X DataID="21">time</X><Y DataID="21">background</Y></Curve2>
      <Curve3 DataID="20"><X DataID="21">energy</X><Y DataID="21">signal</Y></Curve3>
    </Graph>)");
  show("before", graph);
  RYXmlWrapperBase other;
  graph.Clone(other, 1);

  // [include]
  HostStringArray includes;
  includes.array().Add("time");
  includes.array().Add("signal");
  HostStringArray nothing;
  rytree_filter(&graph, kCurve, /*includeMode=*/0, kColumn, &includes, /*excludeMode=*/1, kColumn, &nothing);
  // [include]
  show("with time and signal", graph);

  // [exclude]
  HostStringArray excludes;
  excludes.array().Add("background");
  rytree_filter(&other, kCurve, /*includeMode=*/0, kColumn, &nothing, /*excludeMode=*/1, kColumn, &excludes);
  // [exclude]
  show("without background", other);
}
