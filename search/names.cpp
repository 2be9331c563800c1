// Labels and tags of nodes.
#include <rytree_Utils/paths.h>

#include "frame/children.h"
#include "frame/host_arrays.h"

CString rytree_get_node_label(RYXmlWrapperBase* node, bool useLabel) {
  CString label;
  if (node == nullptr || (useLabel && node->GetPropertyValue("Label", label) != 0)) return label;
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
  for (Children child(*node); child; ++child) {
    const int at = names->GetSize();
    names->SetSize(at + 1);
    child->GetTagName((*names)[at]);
    if (!topLevelOnly) vctree_get_node_names(&*child, names, false);
  }
}
