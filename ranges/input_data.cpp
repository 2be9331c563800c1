// Branches of input data, and date nodes.
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/composite_range.h>

#include <cstddef>
#include <vector>

#include "frame/children.h"
#include "frame/host_arrays.h"
#include "frame/text_index.h"
#include "ranges/range_names.h"

namespace {

constexpr int kInputDataId = 35;
constexpr int kDateId = 14;

/// The first child of each of some tags.
class ChildrenByTag {
 public:
  ChildrenByTag(const RYXmlWrapperBase& parent, const CStringArray& tags) {
    numbers_.reserve(static_cast<std::size_t>(tags.GetSize()));
    for (const CString& tag : tags) numbers_.push_back(static_cast<std::size_t>(index_.add(tag.GetString())));
    children_.resize(static_cast<std::size_t>(index_.count()));
    CString tag;
    for (Children child(parent); child; ++child) {
      child->GetTagName(tag);
      const int number = index_.find(tag.View());
      if (number < 0) continue;
      RYXmlWrapperBase& first = children_[static_cast<std::size_t>(number)];
      if (first.IsNodeValid() == 0) first = *child;
    }
  }

  /// That of the tag at the place; an invalid handle, shared by the equal tags, where there is none.
  RYXmlWrapperBase& at(int place) { return children_[numbers_[static_cast<std::size_t>(place)]]; }

 private:
  TextIndex index_;
  std::vector<std::size_t> numbers_;  // in the index, of the tags
  std::vector<RYXmlWrapperBase> children_;
};

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
  ChildrenByTag children(*out, *tags);
  for (int index = 0; index < tags->GetSize(); ++index) {
    const char* const tag = (*tags)[index].GetString();
    RYXmlWrapperBase& child = children.at(index);
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
