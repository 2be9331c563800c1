// Comparing texts without regard to case.
#pragma once

#include <rytree_host/framework.h>

#include <string>

/// Two texts have the same key if and only if _mbsicmp finds them equal. So a table of keys can replace a
/// search through texts.
inline std::string case_key(const char* text) {
  CString key(text);
  key.MakeLower();
  key.MakeUpper();
  return std::string(key.View());
}
