// Arrays of texts taken as sets: case plays no part, repeats do no harm. Searched linearly.
#pragma once

#include <rytree_host/framework.h>

/// The index of the first equal text, -1 for none.
int string_index_in(const CString& text, const CStringArray* array);

/// 1 if a text of `a` is in `b`, else 0.
int strings_intersect(const CStringArray* a, const CStringArray* b);

/// 1 if all texts of `a` are in `b`. An empty `b` holds nothing, an empty `a` is in any other.
int strings_all_in(const CStringArray* a, const CStringArray* b);
