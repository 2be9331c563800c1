// Labels and tags of nodes.
#include <rytree_Utils/paths.h>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/flag.h"
#include "frame/host_arrays.h"

extern "C" CString flagged_rytree_get_node_label(RYXmlWrapperBase* node, Flag useLabel) {
  CString label;
  if (node == nullptr || (is_set(useLabel) && node->GetPropertyValue(kLabelName, label) != 0)) return label;
  node->GetTagName(label);
  return label;
}
[[gnu::alias("flagged_rytree_get_node_label")]] decltype(rytree_get_node_label) rytree_get_node_label;

int rytree_get_node_names(RYXmlWrapperBase* node, HostArrayObject* names, int topLevelOnly) {
  CStringArray* const array = open_strings(names);
  if (node == nullptr || array == nullptr) return -1;
  vctree_get_node_names(node, array, topLevelOnly != 0);
  return 1;
}

extern "C" void flagged_vctree_get_node_names(RYXmlWrapperBase* node, CStringArray* names,
                                              Flag topLevelOnly) {
  if (node == nullptr || names == nullptr) return;
  make_room(*names, *node, !is_set(topLevelOnly));
  for (NodesBelow at(*node, !is_set(topLevelOnly)); at; ++at) {
    const int place = names->GetSize();
    names->SetSize(place + 1);
    at->GetTagName((*names)[place]);
  }
}
[[gnu::alias("flagged_vctree_get_node_names")]] decltype(vctree_get_node_names) vctree_get_node_names;
