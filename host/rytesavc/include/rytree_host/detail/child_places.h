// Where walks to a child by its index ended, so that the next one can start there.
#pragma once

#include <cstdint>
#include <new>
#include <unordered_map>

namespace rytesavc {

struct Node;

// A place for every parent with many children that was asked for one, until its children change, and for the
// parent that was asked last. Counts are numbers of children, before a change.
class ChildPlaces {
 public:
  struct Place {
    const Node* parent = nullptr;
    Node* child = nullptr;
    std::uint32_t index = 0;
  };

  // One without a child if there is none.
  Place Find(const Node* parent, std::uint32_t count) const {
    if (last_.parent == parent || count <= kFew) return last_.parent == parent ? last_ : Place();
    const auto found = others_.find(parent);
    return found != others_.end() ? found->second : Place();
  }
  void Remember(const Place& place, std::uint32_t count) {
    if (last_.parent != place.parent && keeps_last_) Keep();
    last_ = place;
    keeps_last_ = count > kFew;
  }

  // Something happens to the children of a node, or to the node itself.
  void Forget(const Node* parent, std::uint32_t count) {
    if (last_.parent == parent) Clear();
    ForgetOther(parent, count);
  }
  // A child comes or goes: at the index of `child` is `now` afterwards.
  void Change(const Node* parent, const Node* child, Node* now, std::uint32_t count) {
    if (last_.parent != parent || last_.child != child || now == nullptr) return Forget(parent, count);
    last_.child = now;
    keeps_last_ = count > kFew + 1;
    ForgetOther(parent, count);
  }

 private:
  static constexpr std::uint32_t kFew = 64;

  void Clear() {
    last_ = {};
    keeps_last_ = false;
  }
  void ForgetOther(const Node* parent, std::uint32_t count) {
    if (count > kFew && !others_.empty()) others_.erase(parent);
  }
  void Keep() {
    try {
      others_[last_.parent] = last_;
    } catch (const std::bad_alloc&) {
      // The next walk is longer.
    }
  }

  Place last_;
  bool keeps_last_ = false;
  std::unordered_map<const Node*, Place> others_;  // each has more than a few children
};

}  // namespace rytesavc
