// Saved values in files and nodes, and the attributes that name a tree's theme.
#include <rytree_Utils/themes.h>

#include "frame/host_arrays.h"
#include "themes/values_tree.h"

namespace {

constexpr int kDefaultThemeType = 4;

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

bool vctree_read_values_with_ids(const char* file, CArray<int, int>* ids, CStringArray* values,
                                 CString* comment) {
  if (ids != nullptr) ids->RemoveAll();
  if (values != nullptr) values->RemoveAll();
  RYXmlWrapperBase root;
  if (ids == nullptr || values == nullptr || file == nullptr || root.load(file, 0) == 0) return false;
  vctree_get_theme(&root, ids, values, comment);
  return true;
}

bool vctree_save_values_with_ids(const char* file, CArray<int, int>* ids, CStringArray* values,
                                 const char* comment, CStringArray* labels) {
  RYXmlWrapperBase root;
  return !is_empty(file) && vctree_build_values_tree(&root, ids, values, comment, labels) &&
         root.Save(file) != 0;
}

bool vctree_save_values_with_ids(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values,
                                 const char* comment, CStringArray* labels) {
  if (node == nullptr || node->IsNodeValid() == 0) return false;
  return vctree_build_values_tree(node, ids, values, comment, labels);
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
  return node->GetPropertyValue("ThemeFile", *file) != 0;
}

bool rytree_tree_set_theme_file_name(RYXmlWrapperBase* node, const char* file) {
  if (node == nullptr) return false;
  if (file == nullptr) {
    node->RemoveProperty("ThemeFile");
  } else {
    node->SetPropertyValue("ThemeFile", file);
  }
  return true;
}
