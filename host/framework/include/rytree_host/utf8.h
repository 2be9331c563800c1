// Code points of UTF-8 text.
#pragma once

#include <string>

#include "rytree_host/export.h"

namespace utf8 {

/// A byte that belongs to no character reads as a code of its own, this number plus the byte.
inline constexpr char32_t kStray = 0x110000;

/// Reads the character at `text` and moves behind it; `text` ends with a NUL and does not stand on it. Bytes
/// of overlong forms, surrogates and numbers past U+10FFFF are stray, each by itself.
inline char32_t next(const char*& text) noexcept {
  const auto lead = static_cast<unsigned char>(*text++);
  if (lead < 0x80) return lead;
  const int more = lead < 0xC2 || lead > 0xF4 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  char32_t code = lead & (0x3FU >> more);
  for (int i = 0; i < more; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80) return kStray + lead;
    code = code << 6U | (byte & 0x3FU);
  }
  constexpr char32_t least[] = {kStray, 0x80, 0x800, 0x10000};
  if (code < least[more] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return kStray + lead;
  text += more;
  return code;
}

/// Appends what `next` read.
RYTREE_API void append(std::string& text, char32_t code);

/// The one code point in the other case, or the same if there is none.
RYTREE_API char32_t upper(char32_t code) noexcept;
RYTREE_API char32_t lower(char32_t code) noexcept;

/// Equal for code points that differ in case only: the upper case of the lower case.
inline char32_t fold(char32_t code) noexcept {
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 0x20 : code;
  return upper(lower(code));
}

}  // namespace utf8
