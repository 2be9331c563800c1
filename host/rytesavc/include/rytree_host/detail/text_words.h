// Texts eight bytes at a time.
#pragma once

#include <algorithm>
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

// The bits of the first bytes of a word, up to all eight.
constexpr Word FirstBytes(std::size_t bytes) { return (Word{1} << (4 * bytes) << (4 * bytes)) - 1; }

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

// The first 16 bytes of a text as two words, with zeros behind its end. Names and short texts are hashed,
// compared and stored this way.
struct TextWords {
  static constexpr std::size_t kBytes = 16;

  Word low = 0;
  Word high = 0;

  // Of a text behind whose start 16 bytes can be read, whatever they are.
  static TextWords OfPadded(const char* text, std::size_t length) {
    if (length <= sizeof(Word)) return {LoadWord(text) & FirstBytes(length), 0};
    return {LoadWord(text),
            LoadWord(text + sizeof(Word)) & FirstBytes(std::min(length, kBytes) - sizeof(Word))};
  }
  static TextWords Of(std::string_view text) {
    if (text.size() >= kBytes) return {LoadWord(text.data()), LoadWord(text.data() + 8)};
    char bytes[kBytes] = {};
    std::copy_n(text.data(), text.size(), bytes);
    return {LoadWord(bytes), LoadWord(bytes + 8)};
  }

  bool operator==(const TextWords& other) const { return ((low ^ other.low) | (high ^ other.high)) == 0; }
};

}  // namespace rytesavc
