#include <algorithm>

#include "rytree_host/ryUtils.h"

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_name_byte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || is_digit(c);
}

}  // namespace

int ryuMakeValidCName(CString* name, int /*option*/) {
  if (!name) return 0;
  if (name->IsEmpty() || is_digit(name->GetAt(0))) name->Insert(0, '_');
  char* const bytes = name->GetBuffer();
  std::replace_if(
      bytes, bytes + name->GetLength(), [](char c) { return !is_name_byte(c); }, '_');
  return 1;
}

void ryutilsSort(CArray<unsigned, unsigned>& numbers, int /*option*/) {
  std::sort(numbers.begin(), numbers.end());
}
