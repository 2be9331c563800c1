// Change marks, and the comparison of saved lists.
#include <rytree_Utils/changes.h>
#include <rytree_Utils/values.h>

#include <algorithm>

#include "frame/children.h"
#include "frame/flag.h"
#include "frame/host_arrays.h"
#include "transfer/equal_texts.h"

namespace {

// The attributes of the mark, prepared for all the nodes of one call.
struct ChangeMark {
  RYPropertyName old_value{"OldValue"};
  RYPropertyName old_name{"OldName"};

  void set(RYXmlWrapperBase& node, const CString& value) const { node.SetPropertyValue(old_value, value); }
  void clear(RYXmlWrapperBase& node) const {
    node.RemoveProperty(old_value);
    node.RemoveProperty(old_name);
  }
};

// Goes through a tree and a saved list side by side.
struct Comparison {
  const CStringArray& saved;
  const ChangeMark mark{};
  CString value{};
  int index = 0;
  int changed = 0;

  void compare(RYXmlWrapperBase& node) {
    if (index == saved.GetSize()) return mark.clear(node);
    const CString& before = saved[index++];
    VCTreeNodeGetValue(node, value);
    if (value == before) return mark.clear(node);
    mark.set(node, before);
    ++changed;
  }
};

}  // namespace

int rytree_node_changed(RYXmlWrapperBase* node, int set, const char* oldValue) {
  if (node == nullptr) return 0;
  const ChangeMark mark;
  if (set == 0) return node->HasProperty(mark.old_value);
  if (oldValue != nullptr) {
    mark.set(*node, CString(oldValue));
  } else {
    mark.clear(*node);
  }
  return 1;
}

int rytree_update_changes(RYXmlWrapperBase* node, HostArrayObject* saved) {
  return VCTreeUpdateChanges(node, open_strings(saved));
}

int ry_is_same(HostArrayObject* first, HostArrayObject* second) {
  return VCTreeIsSame(open_ints(first), open_ints(second));
}

int ryget_changed(HostArrayObject* first, HostArrayObject* second, int caseSensitive) {
  return VCTreeGetChanged(open_strings(first), open_strings(second), caseSensitive != 0);
}

int VCTreeUpdateChanges(RYXmlWrapperBase* node, CStringArray* saved) {
  if (node == nullptr || saved == nullptr) return -1;
  Comparison comparison{*saved};
  for (NodesBelow at(*node); at; ++at) comparison.compare(*at);
  return comparison.changed;
}

int VCTreeIsSame(CArray<int, int>* first, CArray<int, int>* second) {
  if (first == nullptr || second == nullptr) return 0;
  return std::equal(first->begin(), first->end(), second->begin(), second->end()) ? 1 : 0;
}

extern "C" int flagged_VCTreeGetChanged(CStringArray* first, CStringArray* second, Flag caseSensitive) {
  if (first == nullptr || second == nullptr) return -1;
  const int size = first->GetSize();
  if (second->GetSize() != size) return -2;
  for (int i = 0; i < size; ++i) {
    const CString& one = (*first)[i];
    const CString& other = (*second)[i];
    if (!(is_set(caseSensitive) ? one == other : equal_ignoring_case(one, other))) return i;
  }
  return -1;
}
[[gnu::alias("flagged_VCTreeGetChanged")]] decltype(VCTreeGetChanged) VCTreeGetChanged;
