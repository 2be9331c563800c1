// Branches of input data.
#include <rytree_Utils/input_data.h>
#include <rytree_Utils/lookup.h>

#include "frame/attributes.h"
#include "frame/check_get.h"
#include "frame/children_by_tag.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"
#include "ranges/range_names.h"

namespace {

constexpr int kInputDataId = 35;

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
    const CString label = range_label(rangeNumber);
    check_get_child(*out, *parent, range_tag(rangeNumber), {id, kLabelName, label});
  }
  FirstByTag children(*out);
  for (int index = 0; index < tags->GetSize(); ++index) {
    const CString& tag = (*tags)[index];
    RYXmlWrapperBase& child = children[tag.View()];
    if (child.IsNodeValid() == 0) out->AddNode(child, tag, kInputDataId);
    const CString& label = (*labels)[index];
    if (!label.IsEmpty()) child.SetPropertyValue(kLabelName, label);
    if (value == nullptr || (valueIndex >= 0 && valueIndex != index)) continue;
    write_text(child, value);
  }
  return true;
}
