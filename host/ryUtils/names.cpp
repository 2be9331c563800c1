#include <algorithm>

#include "rytree_host/code_page.h"
#include "rytree_host/ryUtils.h"

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsNameByte(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || IsDigit(c); }

}  // namespace

int ryuMakeValidCName(CString* name, int /*option*/) {
  if (!name) return 0;
  if (name->IsEmpty() || IsDigit(name->GetAt(0))) name->Insert(0, '_');
  const NarrowCharacters characters;
  const char* const end = name->GetString() + name->GetLength();
  for (char* at = name->GetBuffer(); at < end;) {
    const char* next = at;
    characters.Next(next);
    char* const past = at + (next - at);
    if (past - at > 1 || !IsNameByte(*at)) std::fill(at, past, '_');
    at = past;
  }
  return 1;
}

void ryutilsSort(CArray<unsigned, unsigned>& numbers, int /*option*/) {
  std::sort(numbers.begin(), numbers.end());
}
