// Setting and removing attributes and values across a branch.
#include <rytree_Utils/edit.h>

#include "frame/children.h"

namespace {

struct SetEverywhere {
  const RYPropertyName attribute;
  const CString value;
  const bool branches_only;

  void set(RYXmlWrapperBase& node) const {
    if (!branches_only || node.GetNodeCount() > 0) node.SetPropertyValue(attribute, value);
  }
  void set_branch(RYXmlWrapperBase& node) const {
    for (NodesOf at(node); at; ++at) set(*at);
  }
};

struct HideEmpty {
  const bool recursive;
  const bool remove_show;
  const RYPropertyName show{"Show"};

  int walk(const RYXmlWrapperBase& node) const {
    int hidden = 0;
    for (NodesBelow at(node, recursive); at; ++at) {
      if (at->GetNodeCount() > 0) continue;
      if (at->IsEmpty() != 0) {
        at->SetPropertyValue(show, 0);
        ++hidden;
      } else if (remove_show) {
        at->RemoveProperty(show);
      }
    }
    return hidden;
  }
};

bool has_leaf_with_text(const RYXmlWrapperBase& node, bool recursive) {
  for (NodesBelow at(node, recursive); at; ++at) {
    if (at->GetNodeCount() == 0 && at->IsEmpty() == 0) return true;
  }
  return false;
}

int remove_below(const RYXmlWrapperBase& node, const RYPropertyName& attribute) {
  int removed = 0;
  for (NodesBelow at(node); at; ++at) {
    if (at->RemoveProperty(attribute) != 0) ++removed;
  }
  return removed;
}

}  // namespace

void rytree_set_attribute_to_all_nodes(RYXmlWrapperBase* node, const char* attribute, const char* value,
                                       bool childrenOnly, bool branchesOnly) {
  if (node == nullptr) return;
  const SetEverywhere setting{RYPropertyName(attribute), CString(value), branchesOnly};
  if (!childrenOnly) return setting.set_branch(*node);
  for (Children child(*node); child; ++child) setting.set(*child);
}

int rytree_hide_empty_nodes(RYXmlWrapperBase* node, bool recursive, bool removeShow) {
  return node != nullptr ? HideEmpty{recursive, removeShow}.walk(*node) : 0;
}

int rytree_set_attribute_bit_if_not_empty(RYXmlWrapperBase* node, const char* attribute, int bits,
                                          bool recursive) {
  int word = 0;
  if (node == nullptr || node->GetPropertyValue(attribute, word) == 0 ||
      !has_leaf_with_text(*node, recursive))
    return 0;
  node->SetPropertyValue(attribute, word | bits);
  return 1;
}

int rytree_remove_attribute(RYXmlWrapperBase* node, const char* attribute, int includeSelf) {
  if (node == nullptr) return 0;
  const int self = includeSelf != 0 && node->RemoveProperty(attribute) != 0 ? 1 : 0;
  return self + remove_below(*node, RYPropertyName(attribute));
}

void rytree_clear_all_value(RYXmlWrapperBase* node) {
  if (node == nullptr) return;
  CString nothing;
  for (NodesBelow at(*node); at; ++at) {
    if (at->HasChildren(0) == 0) at->NodeValue(nothing, 0, 1, nullptr);
  }
}

void vctree_modify_DWORD_attribute(RYXmlWrapperBase& node, const char* attribute, DWORD clearBits,
                                   DWORD setBits) {
  int word = 0;
  const bool there = node.GetPropertyValue(attribute, word) != 0;
  if (!there && setBits == 0) return;
  node.SetPropertyValue(attribute, static_cast<int>((static_cast<DWORD>(word) | setBits) & ~clearBits));
}
