// Which node of an old tree corresponds to which node of a new one.
#pragma once

#include <vector>

#include "extras/listing.h"

namespace rytree::detail {

class Pairing {
 public:
  /// The top nodes correspond, then nodes by their IDs, then nodes without an ID by their tags, below nodes
  /// that correspond.
  Pairing(const Listing& old_nodes, const Listing& new_nodes, const TagNumbers& tags);

  /// The index of the corresponding node, -1 for none.
  int of_old(int index) const { return of_old_[static_cast<std::size_t>(index)]; }
  int of_new(int index) const { return of_new_[static_cast<std::size_t>(index)]; }
  /// Whether a node of the new tree has moved.
  bool is_moved(int new_index) const { return moved_[static_cast<std::size_t>(new_index)]; }

 private:
  void pair(int old_index, int new_index);
  void pair_by_id();
  void pair_by_tag(std::size_t tag_count);
  void find_moved();

  const Listing& old_;
  const Listing& new_;
  std::vector<int> of_old_;
  std::vector<int> of_new_;
  std::vector<bool> moved_;
};

}  // namespace rytree::detail
