#include "extras/pairing.h"

#include <utility>

#include "extras/matching.h"

namespace rytree::detail {

namespace {

/// The IDs of the nodes that have one.
std::vector<Numbered> ids_of(const Listing& nodes) {
  std::vector<Numbered> ids;
  for (int i = 0; i < nodes.size(); ++i) {
    if (nodes[i].id != -1) ids.emplace_back(nodes[i].id, i);
  }
  return ids;
}

/// The children without an ID below one parent at a time, to be taken tag by tag.
class ChildrenByTag {
 public:
  ChildrenByTag(const Listing& nodes, std::size_t tag_count)
      : nodes_(nodes), of_tag_(tag_count), next_(static_cast<std::size_t>(nodes.size()), -1) {}

  void fill(int parent) {
    parent_ = parent;
    for (int at = Listing::first_child(parent); at < nodes_[parent].end; at = nodes_[at].end) {
      if (nodes_[at].id != -1) continue;
      Chain& chain = of_tag_[static_cast<std::size_t>(nodes_[at].tag)];
      if (chain.parent != parent) {
        chain = {.parent = parent, .first = at, .last = at};
      } else {
        next_[static_cast<std::size_t>(std::exchange(chain.last, at))] = at;
      }
    }
  }
  /// The next child of that tag, -1 when there are no more.
  int take(int tag) {
    Chain& chain = of_tag_[static_cast<std::size_t>(tag)];
    if (chain.parent != parent_ || chain.first < 0) return -1;
    return std::exchange(chain.first, next_[static_cast<std::size_t>(chain.first)]);
  }

 private:
  struct Chain {
    int parent = -1;
    int first = -1;
    int last = -1;
  };

  const Listing& nodes_;
  std::vector<Chain> of_tag_;
  std::vector<int> next_;  // of the same tag, by index
  int parent_ = -1;
};

}  // namespace

Pairing::Pairing(const Listing& old_nodes, const Listing& new_nodes, const TagNumbers& tags)
    : old_(old_nodes),
      new_(new_nodes),
      of_old_(static_cast<std::size_t>(old_nodes.size()), -1),
      of_new_(static_cast<std::size_t>(new_nodes.size()), -1),
      moved_(static_cast<std::size_t>(new_nodes.size()), false) {
  if (old_.size() == 0 || new_.size() == 0) return;
  pair(0, 0);
  pair_by_id();
  pair_by_tag(tags.count());
  find_moved();
}

void Pairing::pair(int old_index, int new_index) {
  of_old_[static_cast<std::size_t>(old_index)] = new_index;
  of_new_[static_cast<std::size_t>(new_index)] = old_index;
}

void Pairing::pair_by_id() {
  for (const auto& [old_index, new_index] : match_equal(ids_of(old_), ids_of(new_)))
    pair(old_index, new_index);
}

void Pairing::pair_by_tag(std::size_t tag_count) {
  ChildrenByTag new_children(new_, tag_count);
  // A parent comes before its children, so that it is known by then whether it corresponds to another.
  for (int parent = 0; parent < old_.size(); ++parent) {
    if (of_old(parent) < 0) continue;
    new_children.fill(of_old(parent));
    for (int at = Listing::first_child(parent); at < old_[parent].end; at = old_[at].end) {
      if (old_[at].id != -1) continue;
      if (const int found = new_children.take(old_[at].tag); found >= 0) pair(at, found);
    }
  }
}

void Pairing::find_moved() {
  std::vector<int> stayed;     // below the corresponding parent: children in their new order
  std::vector<int> old_order;  // and what they correspond to
  for (int parent = 0; parent < new_.size(); ++parent) {
    stayed.clear();
    old_order.clear();
    for (int at = Listing::first_child(parent); at < new_[parent].end; at = new_[at].end) {
      const int former = of_new(at);
      if (former < 0) continue;
      if (of_old(old_[former].parent) == parent) {
        stayed.push_back(at);
        old_order.push_back(former);
      } else {
        moved_[static_cast<std::size_t>(at)] = true;
      }
    }
    const std::vector<bool> kept = in_order(old_order);
    for (std::size_t i = 0; i < stayed.size(); ++i) moved_[static_cast<std::size_t>(stayed[i])] = !kept[i];
  }
}

}  // namespace rytree::detail
