// The search for a stretch in which some characters stand for any.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

// Follows all places of a text at which the stretch may have begun at once, 64 of them in a word: a plain
// search at its worst takes 64 times as long.
class WildcardSearch {
 public:
  WildcardSearch(std::u32string_view stretch, char32_t any);

  // The first place of the stretch at or after `from`, npos for none.
  std::size_t Find(std::u32string_view text, std::size_t from);

 private:
  using Bits = std::vector<std::uint64_t>;  // one for each character of the stretch
  // Where a character stands in the stretch: as bits if it does so often, else as a list.
  struct Places {
    Bits bits;
    std::vector<std::size_t> list;
  };

  void Step(char32_t next);
  void Shift(const Bits& allowed);

  std::size_t length_;
  Bits any_;
  Bits matched_;  // bit i: the last i + 1 characters of the text match the start of the stretch
  std::unordered_map<char32_t, Places> places_;
};
