// Comparison, length and bounded copy of narrow strings.
#pragma once

#include <cstring>

#include "rytree_host/export.h"

// A null text counts as the empty one throughout.

/// Exact comparison, byte by byte: 0 for equal texts, below or above 0 by their order.
inline int _mbscmp(const char* left, const char* right) noexcept {
  return std::strcmp(left ? left : "", right ? right : "");
}

/// Comparison without regard to case: the texts are read as UTF-8 and their code points compared as folded. A
/// byte that belongs to no character stands for itself. The locale plays no part.
RYTREE_API int _mbsicmp(const char* left, const char* right) noexcept;

inline int lstrcmpA(const char* left, const char* right) noexcept { return _mbscmp(left, right); }
inline int lstrcmpiA(const char* left, const char* right) noexcept { return _mbsicmp(left, right); }

/// The length in bytes.
RYTREE_API int lstrlenA(const char* text) noexcept;

/// Copies at most `size` - 1 bytes and always ends them with a NUL; without a buffer or with a size below 1
/// it does nothing. The result is `buffer`. The two may overlap.
RYTREE_API char* lstrcpynA(char* buffer, const char* text, int size) noexcept;
