#include "wildcard_search.h"

#include <algorithm>

namespace {

constexpr std::size_t kWord = 64;

void Set(std::vector<std::uint64_t>& bits, std::size_t place) {
  bits[place / kWord] |= std::uint64_t{1} << place % kWord;
}

bool IsSet(const std::vector<std::uint64_t>& bits, std::size_t place) {
  return (bits[place / kWord] >> place % kWord & 1) != 0;
}

}  // namespace

WildcardSearch::WildcardSearch(std::u32string_view stretch, char32_t any)
    : length_(stretch.size()), any_(length_ / kWord + 1), matched_(any_.size()) {
  for (std::size_t i = 0; i < length_; ++i) {
    if (stretch[i] == any) {
      Set(any_, i);
    } else {
      places_[stretch[i]].list.push_back(i);
    }
  }
  for (auto& [character, places] : places_) {
    if (places.list.size() < any_.size()) continue;
    places.bits = any_;
    for (const std::size_t place : places.list) Set(places.bits, place);
  }
}

std::size_t WildcardSearch::Find(std::u32string_view text, std::size_t from) {
  if (length_ == 0) return from;
  std::fill(matched_.begin(), matched_.end(), 0);
  for (std::size_t at = from; at < text.size(); ++at) {
    Step(text[at]);
    if (IsSet(matched_, length_ - 1)) return at + 1 - length_;
  }
  return text.npos;
}

void WildcardSearch::Step(char32_t next) {
  const auto found = places_.find(next);
  if (found == places_.end()) return Shift(any_);
  const Places& places = found->second;
  if (!places.bits.empty()) return Shift(places.bits);
  std::vector<std::size_t> hits;
  for (const std::size_t place : places.list) {
    if (place == 0 || IsSet(matched_, place - 1)) hits.push_back(place);
  }
  Shift(any_);
  for (const std::size_t place : hits) Set(matched_, place);
}

void WildcardSearch::Shift(const Bits& allowed) {
  std::uint64_t carried = 1;
  for (std::size_t i = 0; i < matched_.size(); ++i) {
    const std::uint64_t word = matched_[i];
    matched_[i] = (word << 1 | carried) & allowed[i];
    carried = word >> (kWord - 1);
  }
}
