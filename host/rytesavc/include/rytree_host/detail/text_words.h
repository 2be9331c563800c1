// Texts eight bytes at a time.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace rytesavc {

// Eight bytes of a text. The first byte is the lowest, whatever the machine's own order is.
using Word = std::uint64_t;

constexpr Word EachByte(unsigned char byte) { return Word{0x0101010101010101} * byte; }

constexpr Word LittleEndian(Word word) {
  if constexpr (std::endian::native == std::endian::little) return word;
  Word swapped = 0;
  for (int i = 0; i < 8; ++i) swapped |= (word >> (8 * i) & 0xFF) << (56 - 8 * i);
  return swapped;
}

inline Word LoadWord(const char* from) {
  Word word;
  std::memcpy(&word, from, sizeof word);
  return LittleEndian(word);
}

// Of up to eight bytes, with zeros after them.
inline Word LoadShort(const char* from, std::size_t length) {
  if (length == sizeof(Word)) return LoadWord(from);
  Word word = 0;
  if (length < sizeof(std::uint32_t)) {
    for (std::size_t i = 0; i < length; ++i) word |= Word{static_cast<unsigned char>(from[i])} << (8 * i);
    return word;
  }
  // The first four and the last four, which may be the same in part.
  const auto half = [](const char* at) {
    std::uint32_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return std::endian::native == std::endian::little ? Word{bytes} : LittleEndian(bytes) >> 32;
  };
  return half(from) | half(from + length - sizeof(std::uint32_t)) << (8 * (length - sizeof(std::uint32_t)));
}

// A text of up to eight bytes.
constexpr Word WordOf(std::string_view text) {
  Word word = 0;
  for (std::size_t i = 0; i < text.size(); ++i) word |= Word{static_cast<unsigned char>(text[i])} << (8 * i);
  return word;
}

inline void StoreWord(Word word, char* to) {
  word = LittleEndian(word);
  std::memcpy(to, &word, sizeof word);
}

// The first 16 bytes of a text as two words, with zeros after its end. Names and short texts are hashed,
// compared and stored this way.
struct TextWords {
  static constexpr std::size_t kBytes = 16;

  Word low = 0;
  Word high = 0;

  static TextWords Load(const char* from) { return {LoadWord(from), LoadWord(from + sizeof(Word))}; }
  // Of a text from whose start on 16 bytes can be read, whatever comes after it.
  static TextWords OfPadded(const char* text, std::size_t length);
  static TextWords Of(std::string_view text) {
    const char* const from = text.data();
    const std::size_t length = text.size();
    if (length <= sizeof(Word)) return {LoadShort(from, length), 0};
    if (length >= kBytes) return Load(from);
    return {LoadWord(from), LoadWord(from + length - sizeof(Word)) >> (8 * (kBytes - length))};
  }

  void Store(char* to) const {
    StoreWord(low, to);
    StoreWord(high, to + sizeof(Word));
  }
  constexpr TextWords operator&(const TextWords& mask) const { return {low & mask.low, high & mask.high}; }
  bool operator==(const TextWords& other) const { return ((low ^ other.low) | (high ^ other.high)) == 0; }
};

// The bits of the first bytes of a text, up to all 16. Looked up, because a branch that asks for the length would be
// guessed wrong for every other name.
inline constexpr std::array<TextWords, TextWords::kBytes + 1> kFirstBytes = [] {
  std::array<TextWords, TextWords::kBytes + 1> masks{};
  for (std::size_t bytes = 1; bytes < masks.size(); ++bytes) {
    masks[bytes] = masks[bytes - 1];
    Word& word = bytes <= sizeof(Word) ? masks[bytes].low : masks[bytes].high;
    word = word << 8 | 0xFF;
  }
  return masks;
}();

inline TextWords TextWords::OfPadded(const char* text, std::size_t length) {
  return Load(text) & kFirstBytes[(std::min)(length, kBytes)];
}

// Whether two texts of that length are the same after their first 16 bytes, which are.
inline bool IsRestSame(const char* one, const char* other, std::size_t length) {
  for (std::size_t at = TextWords::kBytes; at < length; at += TextWords::kBytes) {
    const std::size_t from = (std::min)(at, length - TextWords::kBytes);
    if (!(TextWords::Load(one + from) == TextWords::Load(other + from))) return false;
  }
  return true;
}

}  // namespace rytesavc
