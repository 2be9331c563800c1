// Resetting the values of the nodes whose DataIDs a caller lists.
#include "themes/hidden_values.h"

#include <rytree_Utils/themes.h>

#include <algorithm>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/host_arrays.h"

namespace {

constexpr int kIntNode = 10;
constexpr int kIntListNode = 13;
constexpr int kBranchNode = 0x10000000;

}  // namespace

SortedIds::SortedIds(const CArray<int, int>& ids) : ids_(ids) {
  for (int i = 0; i < ids.GetSize(); ++i) {
    if (rises_.empty() || ids[i] > ids[rises_.back()]) rises_.push_back(i);
  }
}

int vctree_sorted_id_index(int id, const SortedIds& ids) {
  const auto below = [&ids](int index, int wanted) { return ids.ids_[index] < wanted; };
  const auto first = std::lower_bound(ids.rises_.begin(), ids.rises_.end(), id, below);
  return first != ids.rises_.end() && ids.ids_[*first] == id ? *first : -1;
}

void vctree_GETN_reset_node_value(RYXmlWrapperBase& node) {
  int kind = 0;
  if (node.GetID(kind) == 0) return;
  if (kind == kIntNode || kind == kIntListNode) {
    int zero = 0;
    node.NodeValue(zero, 0);
  } else if (int use = 0; kind == kBranchNode && node.GetPropertyValue(kUseName, use) != 0) {
    node.SetPropertyValue(kUseName, static_cast<const _variant_t*>(nullptr));
  }
}

int vctree_GETN_reset_hidden_values(RYXmlWrapperBase* tree, CArray<int, int>* ids, bool recursive) {
  if (tree == nullptr || ids == nullptr) return 0;
  const SortedIds sorted(*ids);
  const RYPropertyName data_id(kDataIdName);
  int count = 0;
  for (NodesBelow at(*tree, recursive); at; ++at) {
    int id = -1;
    at->GetPropertyValue(data_id, id);
    if (id <= 0 || vctree_sorted_id_index(id, sorted) < 0) continue;
    vctree_GETN_reset_node_value(*at);
    ++count;
  }
  return count;
}

int rytree_GETN_reset_hidden_values(RYXmlWrapperBase* tree, HostArrayObject* ids, bool recursive) {
  return vctree_GETN_reset_hidden_values(tree, open_ints(ids), recursive);
}
