// Labels and tags of nodes.
#include <rytree_Utils/paths.h>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/host_arrays.h"

CString rytree_get_node_label(RYXmlWrapperBase* node, bool useLabel) {
  CString label;
  if (node == nullptr || (useLabel && node->GetPropertyValue(kLabelName, label) != 0)) return label;
  node->GetTagName(label);
  return label;
}

int rytree_get_node_names(RYXmlWrapperBase* node, HostArrayObject* names, int topLevelOnly) {
  CStringArray* const array = open_strings(names);
  if (node == nullptr || array == nullptr) return -1;
  vctree_get_node_names(node, array, topLevelOnly != 0);
  return 1;
}

void vctree_get_node_names(RYXmlWrapperBase* node, CStringArray* names, bool topLevelOnly) {
  if (node == nullptr || names == nullptr) return;
  make_room(*names, *node, !topLevelOnly);
  for (NodesBelow at(*node, !topLevelOnly); at; ++at) {
    const int place = names->GetSize();
    names->SetSize(place + 1);
    at->GetTagName((*names)[place]);
  }
}
