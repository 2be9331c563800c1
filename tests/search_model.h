// What the tests of searches and filters share.
#pragma once

#include <rytree_host/ryUtils.h>

#include "transfer_model.h"

/// The array of a list "a|b", so many times; "" is the empty array.
inline CStringArray listed(const char* list, int times = 1) {
  CStringArray texts;
  ryutilsGetTokens(list, &texts, '|', nullptr, 0, 0);
  const CStringArray once = texts;
  for (int i = 1; i < times; ++i) texts.Append(once);
  return texts;
}
