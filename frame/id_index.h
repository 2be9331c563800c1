// An index of IDs: where an ID is in an array.
#pragma once

#include <rytree_host/framework.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "frame/hash.h"

/// Maps each ID to the first place it was added with. IDs that lie close together get a plain table from the
/// lowest to the highest. Others get a hash table that is at most half full; the hash keeps eight IDs in a
/// row together, so that IDs handed out in sequence are close in memory.
class IdIndex {
 public:
  IdIndex() : slots_(kFewest) {}
  explicit IdIndex(const CArray<int, int>& ids) {
    choose_form(ids);
    for (int place = 0; place < ids.GetSize(); ++place) {
      const int first = add(ids[place], place);
      if (first != place && (duplicate_ < 0 || first < duplicate_)) duplicate_ = first;
    }
  }

  /// Adds an ID, unless it is there already. Gives the place that counts for it: the first it was added with.
  int add(int id, int place) {
    int& at = slots_.empty() ? plain_[offset(id)] : claim(id);
    if (at < 0) at = place;
    return at;
  }
  /// The place of the ID, -1 for none.
  int find(int id) const {
    if (!slots_.empty()) return slots_[seek(id)].place;
    return offset(id) < plain_.size() ? plain_[offset(id)] : -1;
  }
  /// The first entry of the array that has an equal one after it, -1 for none.
  int first_duplicate() const { return duplicate_; }

 private:
  struct Slot {
    int id = 0;
    int place = -1;
  };
  static constexpr std::size_t kBlock = 8;
  static constexpr std::size_t kFewest = 2 * kBlock;

  void choose_form(const CArray<int, int>& ids) {
    const auto [lowest, highest] = std::minmax_element(ids.begin(), ids.end());
    const std::size_t wanted = 2 * static_cast<std::size_t>(ids.end() - ids.begin());
    if (wanted == 0) return;
    lowest_ = *lowest;
    if (offset(*highest) < wanted) {
      plain_.resize(offset(*highest) + 1, -1);
    } else {
      slots_.resize(std::bit_ceil(std::max(wanted, kFewest)));
    }
  }

  std::uint32_t offset(int id) const {
    return static_cast<std::uint32_t>(id) - static_cast<std::uint32_t>(lowest_);
  }

  // The slot of the ID, or the empty one where it belongs.
  std::size_t seek(int id) const {
    const auto word = static_cast<std::uint32_t>(id);
    const std::uint64_t mixed = hash_word(word / kBlock, seed_);
    const std::size_t last = slots_.size() - 1;
    std::size_t at = ((mixed >> 32) * kBlock + word % kBlock) & last;
    while (slots_[at].place >= 0 && slots_[at].id != id) at = (at + 1) & last;
    return at;
  }

  // The place in the slot of the ID; makes the slot if there is none.
  int& claim(int id) {
    if (2 * count_ >= slots_.size()) grow();
    Slot& slot = slots_[seek(id)];
    if (slot.place < 0) ++count_;
    slot.id = id;
    return slot.place;
  }
  void grow() {
    std::vector<Slot> former(2 * slots_.size());
    former.swap(slots_);
    for (const Slot& slot : former) {
      if (slot.place >= 0) slots_[seek(slot.id)] = slot;
    }
  }

  std::uint64_t seed_ = hash_seed(this);
  std::vector<int> plain_;   // places by ID, from the lowest on
  std::vector<Slot> slots_;  // empty where the IDs have a plain table
  std::size_t count_ = 0;
  int lowest_ = 0;
  int duplicate_ = -1;
};
