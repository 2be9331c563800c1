// Resetting the values of the nodes whose DataIDs a caller lists.
#include <rytree_Utils/hidden_values.h>

#include <algorithm>
#include <vector>

#include "frame/attributes.h"
#include "frame/children.h"
#include "frame/flag.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"

namespace {

constexpr int kIntNode = 10;
constexpr int kIntListNode = 13;
constexpr int kBranchNode = 0x10000000;

/// A list of IDs made ready for many searches. A search means: go from the start to the first element that is
/// not below the ID; found if it equals the ID. Such an element is larger than all before it, whatever the
/// order of the list, and the elements that are larger than all before them ascend: in {2, 5, 3, 5, 9} they
/// are 2, 5 and 9.
class SearchedIds {
 public:
  explicit SearchedIds(const CArray<int, int>& ids) {
    for (const int id : ids) {
      if (rises_.empty() || id > rises_.back()) rises_.push_back(id);
    }
  }
  bool contain(int id) const { return std::binary_search(rises_.begin(), rises_.end(), id); }

 private:
  std::vector<int> rises_;  // the elements that are larger than all before them
};

// Resets one node as its node ID asks.
void reset_value(RYXmlWrapperBase& node) {
  int kind = 0;
  if (node.GetID(kind) == 0) return;
  if (kind == kIntNode || kind == kIntListNode) {
    int zero = 0;
    write_number(node, zero);
  } else if (int use = 0; kind == kBranchNode && node.GetPropertyValue(kUseName, use) != 0) {
    node.SetPropertyValue(kUseName, static_cast<const _variant_t*>(nullptr));
  }
}

}  // namespace

extern "C" int flagged_vctree_GETN_reset_hidden_values(RYXmlWrapperBase* tree, CArray<int, int>* ids,
                                                       Flag recursive) {
  if (tree == nullptr || ids == nullptr) return 0;
  const SearchedIds searched(*ids);
  const RYPropertyName data_id(kDataIdName);
  int count = 0;
  for (NodesBelow at(*tree, is_set(recursive)); at; ++at) {
    int id = -1;
    at->GetPropertyValue(data_id, id);
    if (id <= 0 || !searched.contain(id)) continue;
    reset_value(*at);
    ++count;
  }
  return count;
}
[[gnu::alias("flagged_vctree_GETN_reset_hidden_values")]] decltype(vctree_GETN_reset_hidden_values)
    vctree_GETN_reset_hidden_values;

extern "C" int flagged_rytree_GETN_reset_hidden_values(RYXmlWrapperBase* tree, HostArrayObject* ids,
                                                       Flag recursive) {
  return vctree_GETN_reset_hidden_values(tree, open_ints(ids), is_set(recursive));
}
[[gnu::alias("flagged_rytree_GETN_reset_hidden_values")]] decltype(rytree_GETN_reset_hidden_values)
    rytree_GETN_reset_hidden_values;
