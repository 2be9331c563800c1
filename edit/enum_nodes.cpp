// Numbered children.
#include <rytree_Utils/enumerate.h>
#include <rytree_Utils/lookup.h>

#include "frame/host_arrays.h"

void rytree_check_add_enumerated_node(RYXmlWrapperBase* child, RYXmlWrapperBase* parent, const char* prefix,
                                      int number, int id, const char* attribute, const char* value) {
  if (parent == nullptr) return;
  CString tag;
  tag.Format("%s%d", prefix != nullptr ? prefix : "", number);
  rytree_tree_check_get_node(child, parent, tag, id, attribute, value, 1);
}

int rytree_make_one_set_ID(int id, int setNumber) {
  const unsigned set = static_cast<unsigned>(setNumber) | 0x2000U;
  return static_cast<int>(set << 16 | (static_cast<unsigned>(id) & 0xFFFFU));
}

bool rytree_check_add_all_enumerated_nodes(RYXmlWrapperBase* parent, const char* prefix,
                                           HostArrayObject* values, int id, const char* label, int* count,
                                           int* maxNodes) {
  CArray<double, double>* const array = open_doubles(values);
  if (parent == nullptr || array == nullptr) return false;
  const auto start = static_cast<unsigned>(count != nullptr ? *count : parent->GetNodeCount());
  const int size = array->GetSize();
  for (int i = 0; i < size; ++i) {
    if (maxNodes != nullptr && parent->GetNodeCount() >= *maxNodes) break;
    const int number = static_cast<int>(start + static_cast<unsigned>(i) + 1U);
    RYXmlWrapperBase child;
    rytree_check_add_enumerated_node(&child, parent, prefix, number, rytree_make_one_set_ID(id, number),
                                     "Label", label);
    child.NodeValue((*array)[i], 0);
  }
  if (count != nullptr) *count = static_cast<int>(start + static_cast<unsigned>(size));
  return true;
}
