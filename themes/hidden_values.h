// The reset of listed nodes.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

#include <vector>

/// A list of IDs made ready for many searches. A search means: go from the start to the first element that is
/// not below the ID; found if it equals the ID. Such an element is larger than all before it, whatever the
/// order of the list, and those that are make an ascending list of their own: in {2, 5, 3, 5, 9} they are 2,
/// 5 and 9.
class SortedIds {
 public:
  /// Refers to `ids`, which must stay as it is.
  explicit SortedIds(const CArray<int, int>& ids);

 private:
  friend int vctree_sorted_id_index(int id, const SortedIds& ids);

  const CArray<int, int>& ids_;
  std::vector<int> rises_;  // indexes of the elements that are larger than all before them
};

/// The index of `id` in the list, or -1.
int vctree_sorted_id_index(int id, const SortedIds& ids);

/// Resets one node as its node ID asks.
void vctree_GETN_reset_node_value(RYXmlWrapperBase& node);
