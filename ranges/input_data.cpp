// Branches of input data, and date nodes.
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/ranges.h>

#include <string_view>
#include <unordered_map>

#include "frame/children.h"
#include "frame/host_arrays.h"
#include "ranges/range_names.h"

namespace {

constexpr int kInputDataId = 35;
constexpr int kDateId = 14;

// For each of the tags the first child that has it, or an invalid handle.
using ChildrenByTag = std::unordered_map<std::string_view, RYXmlWrapperBase>;

ChildrenByTag children_by_tag(const RYXmlWrapperBase& parent, const CStringArray& tags) {
  ChildrenByTag children;
  for (const CString& tag : tags) children.try_emplace(tag.GetString());
  CString tag;
  for (Children child(parent); child; ++child) {
    child->GetTagName(tag);
    const auto wanted = children.find(tag.View());
    if (wanted != children.end() && wanted->second.IsNodeValid() == 0) wanted->second = *child;
  }
  return children;
}

}  // namespace

bool rytree_tree_check_add_input_data_branch(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                             HostArrayObject* tags, HostArrayObject* labels, int id,
                                             int rangeNumber, int valueIndex, const char* value) {
  const CStringArray* const tag_array = open_strings(tags);
  const CStringArray* const label_array = open_strings(labels);
  return VCTreeCheckAddInputDataBranch(out, parent, tag_array, label_array, id, rangeNumber, valueIndex,
                                       value);
}

bool VCTreeCheckAddInputDataBranch(RYXmlWrapperBase* out, RYXmlWrapperBase* parent, const CStringArray* tags,
                                   const CStringArray* labels, int id, int rangeNumber, int valueIndex,
                                   const char* value) {
  if (out == nullptr || parent == nullptr || tags == nullptr || labels == nullptr) return true;
  *out = *parent;
  if (rangeNumber > 0) {
    rytree_tree_check_get_node(out, parent, range_tag(rangeNumber), id, "Label", range_label(rangeNumber), 1);
  }
  ChildrenByTag children = children_by_tag(*out, *tags);
  for (int index = 0; index < tags->GetSize(); ++index) {
    const char* const tag = (*tags)[index].GetString();
    RYXmlWrapperBase& child = children[tag];
    if (child.IsNodeValid() == 0) out->AddNode(child, tag, kInputDataId);
    const char* const label = (*labels)[index].GetString();
    if (*label != '\0') child.SetPropertyValue("Label", label);
    if (value == nullptr || (valueIndex >= 0 && valueIndex != index)) continue;
    CString text(value);
    child.NodeValue(text, 0, 1, nullptr);
  }
  return true;
}

int rytree_set_date_node(RYXmlWrapperBase* node, double value) {
  if (node == nullptr) return 0;
  node->SetID(kDateId, false);
  node->SetPropertyValue("NumFormat", "D9");
  return node->NodeValue(value, 0);
}
