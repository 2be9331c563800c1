// Equal texts.
#pragma once

#include <rytree_host/framework.h>

#include <cstring>

/// Whether two texts are equal, case aside, also after a NUL, where the host's comparison ends.
inline bool equal_ignoring_case(const CString& left, const CString& right) {
  if (left == right) return true;
  const char* a = left;
  const char* b = right;
  const char* const a_end = a + left.View().size();
  const char* const b_end = b + right.View().size();
  while (_mbsicmp(a, b) == 0) {
    a += std::strlen(a);
    b += std::strlen(b);
    if (a == a_end || b == b_end) return a == a_end && b == b_end;
    ++a;
    ++b;
  }
  return false;
}
