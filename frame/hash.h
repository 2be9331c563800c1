// Hashes for the indexes of texts and IDs.
#pragma once

#include <rytree_host/export.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// An odd number made of the place of an index in memory. Nobody who writes a file knows that place, so
/// nobody can choose texts or IDs that share a slot.
inline std::uint64_t hash_seed(const void* index) {
  return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(index)) * 0x9E3779B97F4A7C15U | 1U;
}

inline std::uint64_t hash_word(std::uint64_t word, std::uint64_t seed) {
  return rytree_host::FoldedProduct(word ^ 0xD6E8FEB86659FD93U, seed);
}

template <class Word>
std::uint64_t load(const char* from) {
  Word word;
  std::memcpy(&word, from, sizeof word);
  return word;
}

inline std::uint64_t hash_text(std::string_view text, std::uint64_t seed) {
  const char* const end = text.data() + text.size();
  std::uint64_t hash = text.size();
  std::uint64_t last = 0;
  if (text.size() >= 8) {
    for (const char* at = text.data(); end - at > 8; at += 8) {
      hash = hash_word(hash ^ load<std::uint64_t>(at), seed);
    }
    last = load<std::uint64_t>(end - 8);
  } else if (text.size() >= 4) {
    last = load<std::uint32_t>(text.data()) << 32 | load<std::uint32_t>(end - 4);
  } else if (!text.empty()) {
    last = load<std::uint8_t>(text.data()) << 16 | load<std::uint8_t>(end - text.size() / 2 - 1) << 8 |
           load<std::uint8_t>(end - 1);
  }
  return hash_word(hash ^ last, seed);
}
