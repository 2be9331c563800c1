// Hashes for the indexes of texts and IDs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// An odd number made of the place of an index in memory. Nobody who writes a file knows that place, so nobody can
/// choose texts or IDs that share a slot.
inline std::uint64_t hash_seed(const void* index) {
  return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(index)) * 0x9E3779B97F4A7C15U | 1U;
}

inline std::uint64_t hash_word(std::uint64_t word, std::uint64_t seed) {
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(word ^ 0xD6E8FEB86659FD93U) * seed;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

inline std::uint64_t hash_text(std::string_view text, std::uint64_t seed) {
  std::uint64_t hash = text.size();
  std::uint64_t word = 0;
  for (; text.size() > sizeof word; text.remove_prefix(sizeof word)) {
    std::memcpy(&word, text.data(), sizeof word);
    hash = hash_word(hash ^ word, seed);
  }
  word = 0;
  if (!text.empty()) std::memcpy(&word, text.data(), text.size());
  return hash_word(hash ^ word, seed);
}
