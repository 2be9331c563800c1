// What XML text is made of, as the readers and the writer see it.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "rytree_host/utf8.h"

namespace rytesavc {

constexpr bool IsXmlBlank(char c) {
  constexpr unsigned long long kBlanks = 1ULL << ' ' | 1ULL << '\t' | 1ULL << '\n' | 1ULL << '\r';
  const auto byte = static_cast<unsigned char>(c);
  return byte <= ' ' && (kBlanks >> byte & 1) != 0;
}

constexpr bool IsXmlCharacter(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code < 0xD800 || (code >= 0xE000 && code <= 0x10FFFF && code != 0xFFFE && code != 0xFFFF);
}

// The value of a hexadecimal digit; -1 for other bytes.
inline int HexDigit(char c) {
  static constexpr auto kDigits = [] {
    std::array<signed char, 256> digits{};
    digits.fill(-1);
    for (const std::string_view all : {"0123456789abcdef", "0123456789ABCDEF"}) {
      signed char value = 0;
      for (const char digit : all) digits[static_cast<unsigned char>(digit)] = value++;
    }
    return digits;
  }();
  return kDigits[static_cast<unsigned char>(c)];
}

// The length of the first character; 0 for bytes that are not one, and for the two that XML leaves out.
inline std::size_t CharacterLength(std::string_view text) {
  const char* end = text.data();
  return IsXmlCharacter(utf8::next(end, text.size())) ? static_cast<std::size_t>(end - text.data()) : 0;
}

}  // namespace rytesavc
