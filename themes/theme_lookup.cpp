// Lookups in theme trees.
#include <rytree_Utils/theme_lookup.h>
#include <rytree_host/framework.h>

#include <array>
#include <utility>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/flag.h"
#include "frame/node_text.h"

namespace {

struct LowIdSearch {
  RYXmlWrapperBase& out;
  const int id;
  const bool recursive;
  const RYPropertyName data_id{kDataIdName};

  bool find(const RYXmlWrapperBase& tree, int depth) const {
    if (depth < 0) return false;
    for (Children child(tree); child; ++child) {
      if (matches(*child)) {
        out = *child;
        return true;
      }
      // The depth that a branch uses up is not given back.
      if (recursive && child->HasChildren(0) != 0 && find(*child, --depth)) return true;
    }
    return false;
  }

  bool matches(const RYXmlWrapperBase& node) const {
    int read = 0;
    return (node.GetID(read) != 0 && (read & 0xFFFF) == id) ||
           (node.GetPropertyValue(data_id, read) != 0 && (read & 0xFFFF) == id);
  }
};

}  // namespace

extern "C" int flagged_rytree_theme_tree_get_node_by_id(RYXmlWrapperBase* out, RYXmlWrapperBase* tree, int id,
                                                        int depth, Flag recursive) {
  if (out == nullptr || tree == nullptr) return 0;
  return LowIdSearch{*out, id, is_set(recursive)}.find(*tree, depth) ? 1 : 0;
}
[[gnu::alias("flagged_rytree_theme_tree_get_node_by_id")]] decltype(rytree_theme_tree_get_node_by_id)
    rytree_theme_tree_get_node_by_id;

extern "C" int flagged_rytree_theme_tree_get_node_by_index(RYXmlWrapperBase* out, RYXmlWrapperBase* tree,
                                                           int id, int index, int depth, Flag recursive) {
  if (index < 1 || rytree_theme_tree_get_node_by_id(out, tree, id, depth, is_set(recursive)) == 0) return 0;
  return out->GetNodeCount() < index ? 0 : out->GetChild(*out, index - 1);
}
[[gnu::alias("flagged_rytree_theme_tree_get_node_by_index")]] decltype(rytree_theme_tree_get_node_by_index)
    rytree_theme_tree_get_node_by_index;

int rytree_theme_tree_get_range_from_range_style(RYXmlWrapperBase* style, int* left, int* top, int* right,
                                                 int* bottom) {
  if (style == nullptr || left == nullptr || top == nullptr || right == nullptr || bottom == nullptr)
    return 0;
  const std::array<std::pair<const char*, int*>, 4> sides = {
      {{"Left", left}, {"Right", right}, {"Top", top}, {"Bottom", bottom}}};
  int sum = 0;
  CString tag;
  for (Children child(*style); child; ++child) {
    read_tag(*child, tag);
    for (const auto& [name, number] : sides) {
      if (_mbsicmp(tag, name) == 0) sum += read_number(*child, *number);
    }
  }
  return sum == 4 ? 1 : 0;
}
