// Arrays of texts taken as sets.
#include "search/text_sets.h"

#include <algorithm>

int string_index_in(const CString& text, const CStringArray* array) {
  for (int index = 0; index < array->GetSize(); ++index) {
    if (_mbsicmp(text, (*array)[index]) == 0) return index;
  }
  return -1;
}

int strings_intersect(const CStringArray* a, const CStringArray* b) {
  const auto in_b = [b](const CString& text) { return string_index_in(text, b) >= 0; };
  return std::any_of(a->begin(), a->end(), in_b) ? 1 : 0;
}

int strings_all_in(const CStringArray* a, const CStringArray* b) {
  const auto in_b = [b](const CString& text) { return string_index_in(text, b) >= 0; };
  return !b->IsEmpty() && std::all_of(a->begin(), a->end(), in_b) ? 1 : 0;
}
