// Code points of UTF-8 text.
#pragma once

#include <cstddef>
#include <string>

#include "rytree_host/export.h"

namespace utf8 {

/// A byte that belongs to no character reads as a code of its own, this number plus the byte.
inline constexpr char32_t kStray = 0x110000;

/// Reads the character at `text` and moves past it. The text has at least one more byte, and ends with a NUL
/// or after `length` bytes. Bytes of overlong forms, surrogates and numbers past U+10FFFF are stray, each by
/// itself.
inline char32_t next(const char*& text, std::size_t length = 4) noexcept {
  const auto lead = static_cast<unsigned char>(*text++);
  if (lead < 0x80) return lead;
  const int more = lead < 0xC2 || lead > 0xF4 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  if (static_cast<std::size_t>(more) >= length) return kStray + lead;
  char32_t code = lead & (0x3FU >> more);
  for (int i = 0; i < more; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80) return kStray + lead;
    code = code << 6U | (byte & 0x3FU);
  }
  constexpr char32_t kLeast[] = {kStray, 0x80, 0x800, 0x10000};
  if (code < kLeast[more] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return kStray + lead;
  text += more;
  return code;
}

/// Writes what `next` read, in up to four bytes. Gives the place after it.
inline char* put(char* to, char32_t code) noexcept {
  if (code < 0x80 || code >= kStray) {
    *to = static_cast<char>(code < 0x80 ? code : code - kStray);
    return to + 1;
  }
  const auto follow = [code](int shift) { return static_cast<char>(0x80U | (code >> shift & 0x3FU)); };
  if (code < 0x800) {
    *to++ = static_cast<char>(0xC0U | code >> 6);
  } else {
    if (code < 0x10000) {
      *to++ = static_cast<char>(0xE0U | code >> 12);
    } else {
      *to++ = static_cast<char>(0xF0U | code >> 18);
      *to++ = follow(12);
    }
    *to++ = follow(6);
  }
  *to++ = follow(0);
  return to;
}

/// Appends what `next` read.
RYFRAMEWORK_API void append(std::string& text, char32_t code);

/// The code point in that case, or the same one if it has no single counterpart.
RYFRAMEWORK_API char32_t upper(char32_t code) noexcept;
RYFRAMEWORK_API char32_t lower(char32_t code) noexcept;

/// Unicode's simple case folding: the same for code points that differ in case only, but not for ones that
/// only a language or a longer text makes equal ("İ ı I i" are three, "ß" is not "ss").
RYFRAMEWORK_API char32_t fold_high(char32_t code) noexcept;
inline char32_t fold(char32_t code) noexcept {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + 0x20 : code;
  return fold_high(code);
}

}  // namespace utf8
