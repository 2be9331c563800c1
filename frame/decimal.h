// Numbers at the start of texts.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdlib>

/// The decimal number that `text` begins with, after any white space and a sign: 0 if there is none, the
/// nearest int if it is out of range.
inline int leading_int(const char* text) {
  return static_cast<int>(std::clamp<long long>(std::strtoll(text, nullptr, 10), INT_MIN, INT_MAX));
}
