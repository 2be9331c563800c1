// Comparison, search, length and bounded copy of narrow strings, in the encoding of the default page
// (code_page.h). system_names.h tells when the names of rytree_host are global too.
#pragma once

#include <cstring>
#include <string>

#include "rytree_host/export.h"

// A null text counts as the empty one throughout.

/// Exact comparison, byte by byte: 0 for equal texts, below or above 0 by their order.
inline int _mbscmp(const char* left, const char* right) noexcept {
  return std::strcmp(left ? left : "", right ? right : "");
}

/// Comparison without regard to case: the folded code points of the characters are compared (utf8::fold).
/// What is not a character stands for itself. The locale plays no part.
RYFRAMEWORK_API int _mbsicmp(const char* left, const char* right) noexcept;

/// A text without NUL that is the same for texts that _mbsicmp finds equal, and for no others. It is not for
/// showing.
RYFRAMEWORK_API std::string case_key(const char* text);

/// Past the first character of a text that is not empty.
RYFRAMEWORK_API const char* _mbsinc(const char* text) noexcept;

/// The first place of a character of one byte, or null. The NUL at the end does not count, and neither does
/// the second byte of another character.
RYFRAMEWORK_API const char* _mbschr(const char* text, char character) noexcept;

namespace rytree_host {

inline int lstrcmpA(const char* left, const char* right) noexcept { return _mbscmp(left, right); }
inline int lstrcmpiA(const char* left, const char* right) noexcept { return _mbsicmp(left, right); }

/// The length in bytes.
RYFRAMEWORK_API int lstrlenA(const char* text) noexcept;

/// Copies as many whole characters as take at most `size` - 1 bytes and always ends them with a NUL; without
/// a buffer or with a size below 1 it does nothing. The result is `buffer`. The two may overlap.
RYFRAMEWORK_API char* lstrcpynA(char* buffer, const char* text, int size) noexcept;

}  // namespace rytree_host

#include "rytree_host/system_names.h"
