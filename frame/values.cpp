// The value of a node, and the values of a branch as a flat list.
#include <rytree_Utils/values.h>

#include <utility>

#include "frame/children.h"
#include "frame/flag.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"

namespace {

void append_text(RYXmlWrapperBase& node, CStringArray& values) {
  CString text;
  read_text(node, text);
  values.Add(std::move(text));
}

void append_entry(RYXmlWrapperBase& node, CStringArray& values) {
  CString text;
  VCTreeNodeGetValue(node, text);
  values.Add(std::move(text));
}

}  // namespace

int rytree_get_values(RYXmlWrapperBase* tree, HostArrayObject* values, int childrenOnly) {
  CStringArray* const strings = open_strings(values);
  return strings != nullptr ? VCTreeGetValues(tree, strings, childrenOnly != 0) : -1;
}

extern "C" int flagged_VCTreeGetValues(RYXmlWrapperBase* tree, CStringArray* values, Flag childrenOnly) {
  if (tree == nullptr || values == nullptr) return -1;
  make_room(*values, *tree, !is_set(childrenOnly));
  if (!is_set(childrenOnly) || tree->HasChildren(0) == 0) {
    append_entry(*tree, *values);
    for (NodesBelow at(*tree); at; ++at) append_entry(*at, *values);
    return 0;
  }
  values->Add(CString());
  for (Children child(*tree); child; ++child) append_text(*child, *values);
  return 0;
}
[[gnu::alias("flagged_VCTreeGetValues")]] decltype(VCTreeGetValues) VCTreeGetValues;

void vctree_get_all_children_values_as_string_array(RYXmlWrapperBase& node, CStringArray& values) {
  make_room(values, node, false);
  for (Children child(node); child; ++child) append_text(*child, values);
}

void VCTreeNodeGetValue(RYXmlWrapperBase& node, CString& value) {
  if (node.HasChildren(0) != 0) {
    value.Empty();
  } else {
    read_text(node, value);
  }
}
