// An index of texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "frame/hash.h"

/// Numbers texts, which hold no NUL, from 0 in the order in which they are added; equal texts share a number.
/// A lookup touches its slot and one shared buffer of texts.
class TextIndex {
 public:
  /// The number of the text; a new text gets the next one.
  int add(std::string_view text) {
    if (2 * static_cast<std::size_t>(count_) >= slots_.size()) grow();
    const std::uint32_t key = hash(text);
    Slot& slot = slots_[seek(text, key)];
    if (slot.number < 0) {
      slot = {.hash = key, .number = count_++, .start = characters_.size()};
      characters_.append(text).push_back('\0');
    }
    return slot.number;
  }
  /// The number of the text, -1 for none.
  int find(std::string_view text) const { return slots_[seek(text, hash(text))].number; }
  int count() const { return count_; }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    int number = -1;
    std::size_t start = 0;
  };

  std::uint32_t hash(std::string_view text) const {
    return static_cast<std::uint32_t>(hash_text(text, seed_) >> 32);
  }
  bool is_at(std::size_t start, std::string_view text) const {
    return characters_.compare(start, text.size(), text) == 0 && characters_[start + text.size()] == '\0';
  }
  // The slot of the text, or the empty one where it belongs.
  std::size_t seek(std::string_view text, std::uint32_t hash) const {
    std::size_t at = hash & (slots_.size() - 1);
    while (slots_[at].number >= 0 && !(slots_[at].hash == hash && is_at(slots_[at].start, text)))
      at = (at + 1) & (slots_.size() - 1);
    return at;
  }
  void grow() {
    std::vector<Slot> former(2 * slots_.size());
    former.swap(slots_);
    for (const Slot& slot : former) {
      if (slot.number < 0) continue;
      std::size_t at = slot.hash & (slots_.size() - 1);
      while (slots_[at].number >= 0) at = (at + 1) & (slots_.size() - 1);
      slots_[at] = slot;
    }
  }

  std::uint64_t seed_ = hash_seed(this);
  std::vector<Slot> slots_ = std::vector<Slot>(16);  // a power of two, at most half of them full
  std::string characters_;
  int count_ = 0;
};
