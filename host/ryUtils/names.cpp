#include <algorithm>

#include "rytree_host/ryUtils.h"

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsNameByte(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || IsDigit(c); }

}  // namespace

int ryuMakeValidCName(CString* name, int /*option*/) {
  if (!name) return 0;
  if (name->IsEmpty() || IsDigit(name->GetAt(0))) name->Insert(0, '_');
  char* const bytes = name->GetBuffer();
  std::replace_if(
      bytes, bytes + name->GetLength(), [](char c) { return !IsNameByte(c); }, '_');
  return 1;
}

void ryutilsSort(CArray<unsigned, unsigned>& numbers, int /*option*/) {
  std::sort(numbers.begin(), numbers.end());
}
