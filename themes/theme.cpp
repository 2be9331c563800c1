// Reading and writing the branch that holds a theme.
#include <rytree_Utils/themes.h>

#include <string_view>
#include <utility>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/decimal.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"
#include "themes/values_tree.h"

namespace {

constexpr std::string_view kTagPrefix = "node";

int id_of_tag(const CString& tag) {
  return leading_int(tag.GetString() + (tag.View().starts_with(kTagPrefix) ? kTagPrefix.size() : 0));
}

/// Makes `target` an empty "Settings" branch.
bool start_values_tree(RYXmlWrapperBase& target) {
  RYXmlWrapperBase scratch;
  RYXmlWrapperBase settings;
  scratch.CreateNew(0, nullptr);
  if (scratch.AddTextNode(settings, "Settings", "Settings", 0, 0, nullptr) == 0) return false;
  if (target.IsNodeValid() == 0) target.CreateNew(0, nullptr);
  return target.ReplaceByNodeCopy(settings, 1, 0) != 0;
}

}  // namespace

bool vctree_build_values_tree(RYXmlWrapperBase* target, const CArray<int, int>* ids,
                              const CStringArray* values, const char* comment, const CStringArray* labels) {
  if (target == nullptr || ids == nullptr || values == nullptr) return false;
  const int count = ids->GetSize();
  if (count == 0 || values->GetSize() != count || !start_values_tree(*target)) return false;
  const RYPropertyName label(kLabelName);
  const int label_count = labels == nullptr ? 0 : labels->GetSize();
  RYXmlWrapperBase child;
  CString tag;
  for (int i = 0; i < count; ++i) {
    tag.Format("node%d", ids->GetAt(i));
    if (target->AddTextNode(child, values->GetAt(i), tag, -1, 0, nullptr) == 0) return false;
    if (i < label_count) child.SetPropertyValue(label, labels->GetAt(i));
  }
  if (comment != nullptr) target->SetPropertyValue("Comment", comment);
  return true;
}

void vctree_get_theme(RYXmlWrapperBase* theme, CArray<int, int>* ids, CStringArray* values,
                      CString* comment) {
  if (theme == nullptr || ids == nullptr || values == nullptr) return;
  make_room(*ids, *theme, false);
  make_room(*values, *theme, false);
  CString tag;
  for (Children child(*theme); child; ++child) {
    CString value;
    child->GetTagName(tag);
    read_text(*child, value);
    ids->Add(id_of_tag(tag));
    values->Add(std::move(value));
  }
  if (comment != nullptr) theme->GetPropertyValue("Comment", *comment);
}

bool vctree_set_theme(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values,
                      const char* comment) {
  return vctree_build_values_tree(node, ids, values, comment, nullptr);
}

bool rytree_get_theme(RYXmlWrapperBase* theme, HostArrayObject* ids, HostArrayObject* values,
                      CString* comment) {
  vctree_get_theme(theme, open_ints(ids), open_strings(values), comment);
  return true;
}

bool rytree_set_theme(RYXmlWrapperBase* node, HostArrayObject* ids, HostArrayObject* values,
                      const char* comment) {
  CStringArray* const strings = open_strings(values);
  return strings == nullptr || vctree_set_theme(node, open_ints(ids), strings, comment);
}
