// Setting and removing attributes and values across a branch.
#include <rytree_Utils/edit.h>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/flag.h"
#include "frame/node_text.h"

namespace {

bool has_leaf_with_text(const RYXmlWrapperBase& node, bool recursive) {
  for (NodesBelow at(node, recursive); at; ++at) {
    if (at->GetNodeCount() == 0 && at->IsEmpty() == 0) return true;
  }
  return false;
}

}  // namespace

extern "C" void flagged_rytree_set_attribute_to_all_nodes(RYXmlWrapperBase* node, const char* attribute,
                                                          const char* value, Flag childrenOnly,
                                                          Flag branchesOnly) {
  if (node == nullptr) return;
  const RYPropertyName name(attribute);
  const CString text(value);
  const auto set = [&](RYXmlWrapperBase& at) {
    if (!is_set(branchesOnly) || at.GetNodeCount() > 0) at.SetPropertyValue(name, text);
  };
  if (!is_set(childrenOnly)) set(*node);
  for (NodesBelow at(*node, !is_set(childrenOnly)); at; ++at) set(*at);
}
[[gnu::alias("flagged_rytree_set_attribute_to_all_nodes")]] decltype(rytree_set_attribute_to_all_nodes)
    rytree_set_attribute_to_all_nodes;

extern "C" int flagged_rytree_hide_empty_nodes(RYXmlWrapperBase* node, Flag recursive, Flag removeShow) {
  if (node == nullptr) return 0;
  const RYPropertyName show(kShowName);
  int hidden = 0;
  for (NodesBelow at(*node, is_set(recursive)); at; ++at) {
    if (at->GetNodeCount() > 0) continue;
    if (at->IsEmpty() != 0) {
      at->SetPropertyValue(show, 0);
      ++hidden;
    } else if (is_set(removeShow)) {
      at->RemoveProperty(show);
    }
  }
  return hidden;
}
[[gnu::alias("flagged_rytree_hide_empty_nodes")]] decltype(rytree_hide_empty_nodes) rytree_hide_empty_nodes;

extern "C" int flagged_rytree_set_attribute_bit_if_not_empty(RYXmlWrapperBase* node, const char* attribute,
                                                             int bits, Flag recursive) {
  int word = 0;
  if (node == nullptr || node->GetPropertyValue(attribute, word) == 0 ||
      !has_leaf_with_text(*node, is_set(recursive)))
    return 0;
  node->SetPropertyValue(attribute, word | bits);
  return 1;
}
[[gnu::alias(
    "flagged_rytree_set_attribute_bit_if_not_empty")]] decltype(rytree_set_attribute_bit_if_not_empty)
    rytree_set_attribute_bit_if_not_empty;

int rytree_remove_attribute(RYXmlWrapperBase* node, const char* attribute, int includeSelf) {
  if (node == nullptr) return 0;
  const RYPropertyName name(attribute);
  int removed = includeSelf != 0 && node->RemoveProperty(name) != 0 ? 1 : 0;
  for (NodesBelow at(*node); at; ++at) {
    if (at->RemoveProperty(name) != 0) ++removed;
  }
  return removed;
}

void rytree_clear_all_value(RYXmlWrapperBase* node) {
  if (node == nullptr) return;
  const CString nothing;
  for (NodesBelow at(*node); at; ++at) {
    if (at->HasChildren(0) == 0) write_text(*at, nothing);
  }
}

void vctree_modify_DWORD_attribute(RYXmlWrapperBase& node, const char* attribute, DWORD clearBits,
                                   DWORD setBits) {
  int word = 0;
  const bool there = node.GetPropertyValue(attribute, word) != 0;
  if (!there && setBits == 0) return;
  node.SetPropertyValue(attribute, static_cast<int>((static_cast<DWORD>(word) | setBits) & ~clearBits));
}
