// Themes and saved values in nodes and files, and the attributes that name the theme of a tree.
#include <rytree_Utils/themes.h>

#include <string_view>
#include <utility>

#include "frame/aliasing.h"
#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/decimal.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"

namespace {

constexpr std::string_view kTagPrefix = "node";
constexpr int kDefaultThemeType = 4;
constexpr const char* kThemeFileName = "ThemeFile";

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

/// Writes the pairs into `target`, with a "Label" for each child that `labels` (may be null) has an element
/// for. Null pointers and failures as in vctree_set_theme.
bool build_values_tree(RYXmlWrapperBase* target, const CArray<int, int>* ids, const CStringArray* values,
                       const char* comment, const CStringArray* labels) {
  if (target == nullptr || ids == nullptr || values == nullptr) return false;
  const int count = ids->GetSize();
  if (count == 0 || values->GetSize() != count || !start_values_tree(*target)) return false;
  const RYPropertyName label(kLabelName);
  const int label_count = labels == nullptr ? 0 : labels->GetSize();
  RYXmlWrapperBase child;
  CString tag;
  for (int i = 0; i < count; ++i) {
    tag.Format("node%d", ids->GetAt(i));
    if (target->AddNode(child, tag, -1) == 0) return false;
    if (write_text(child, values->GetAt(i)) == 0) {
      child.RemoveNode();
      return false;
    }
    if (i < label_count) child.SetPropertyValue(label, labels->GetAt(i));
  }
  if (comment != nullptr) target->SetPropertyValue("Comment", comment);
  return true;
}

bool is_empty(const char* text) { return text == nullptr || *text == '\0'; }

/// What both plain saves have in common: `target` is a file or a node.
template <class Target>
bool save_from_objects(Target target, HostArrayObject* ids, HostArrayObject* values, const char* comment,
                       HostArrayObject* labels) {
  if (ids == nullptr || values == nullptr) return false;
  CStringArray* const value_strings = open_strings(values);
  CStringArray* const label_strings = open_strings(labels);
  if (value_strings == nullptr || label_strings == nullptr) return true;
  return vctree_save_values_with_ids(target, open_ints(ids), value_strings, comment, label_strings);
}

}  // namespace

void vctree_get_theme(RYXmlWrapperBase* theme, CArray<int, int>* ids, CStringArray* values,
                      CString* comment) {
  if (theme == nullptr || ids == nullptr || values == nullptr) return;
  // First: it may be one of the values, which move when there are more of them.
  if (comment != nullptr) theme->GetPropertyValue("Comment", *comment);
  make_room(*ids, *theme, false);
  make_room(*values, *theme, false);
  CString tag;
  for (Children child(*theme); child; ++child) {
    CString value;
    read_tag(*child, tag);
    read_text(*child, value);
    ids->Add(id_of_tag(tag));
    values->Add(std::move(value));
  }
}

bool vctree_set_theme(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values,
                      const char* comment) {
  return build_values_tree(node, ids, values, comment, nullptr);
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

bool vctree_read_values_with_ids(const char* file, CArray<int, int>* ids, CStringArray* values,
                                 CString* comment) {
  RYXmlWrapperBase root;
  const bool loaded = file != nullptr && root.load(file, 0) != 0;  // first: `file` may be one of the values
  CString* const kept_comment = unless_element(comment, values);
  if (ids != nullptr) ids->RemoveAll();
  if (values != nullptr) values->RemoveAll();
  if (!loaded || ids == nullptr || values == nullptr) return false;
  vctree_get_theme(&root, ids, values, kept_comment);
  return true;
}

bool vctree_save_values_with_ids(const char* file, CArray<int, int>* ids, CStringArray* values,
                                 const char* comment, CStringArray* labels) {
  RYXmlWrapperBase root;
  return !is_empty(file) && build_values_tree(&root, ids, values, comment, labels) && root.Save(file) != 0;
}

bool vctree_save_values_with_ids(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values,
                                 const char* comment, CStringArray* labels) {
  if (node == nullptr || node->IsNodeValid() == 0) return false;
  return build_values_tree(node, ids, values, comment, labels);
}

bool rytree_tree_read_values_with_ids(const char* file, HostArrayObject* ids, HostArrayObject* values,
                                      CString* comment) {
  if (file == nullptr) return false;
  CStringArray* const strings = open_strings(values);
  return strings == nullptr || vctree_read_values_with_ids(file, open_ints(ids), strings, comment);
}

bool rytree_tree_save_values_with_ids(const char* file, HostArrayObject* ids, HostArrayObject* values,
                                      const char* comment, HostArrayObject* labels) {
  return !is_empty(file) && save_from_objects(file, ids, values, comment, labels);
}

bool rytree_save_values_with_ids(RYXmlWrapperBase* node, HostArrayObject* ids, HostArrayObject* values,
                                 const char* comment, HostArrayObject* labels) {
  if (node == nullptr || node->IsNodeValid() == 0) return false;
  return save_from_objects(node, ids, values, comment, labels);
}

int rytree_tree_get_theme_type(RYXmlWrapperBase* node) {
  if (node == nullptr) return 0;
  int type = kDefaultThemeType;
  node->GetPropertyValue("ThemeType", type);
  return type;
}

bool rytree_tree_get_theme_file_name(RYXmlWrapperBase* node, CString* file) {
  if (node == nullptr || file == nullptr) return false;
  file->Empty();
  return node->GetPropertyValue(kThemeFileName, *file) != 0;
}

bool rytree_tree_set_theme_file_name(RYXmlWrapperBase* node, const char* file) {
  if (node == nullptr) return false;
  if (file == nullptr) {
    node->RemoveProperty(kThemeFileName);
  } else {
    node->SetPropertyValue(kThemeFileName, file);
  }
  return true;
}
