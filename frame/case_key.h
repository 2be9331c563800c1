// Texts made equal where they differ in case only.
#pragma once

#include <rytree_host/framework.h>

#include <string>

/// Two texts have the same key if _mbsicmp finds them equal, so that a set of keys stands in for a search
/// through texts.
inline std::string case_key(const char* text) {
  CString key(text);
  key.MakeLower();
  key.MakeUpper();
  return std::string(key.View());
}
