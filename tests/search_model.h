// What the tests of searches and filters share.
#pragma once

#include <rytree_host/ryUtils.h>

#include "transfer_model.h"

/// The array of a list "a|b"; "" is the empty array.
inline CStringArray listed(const char* list) {
  CStringArray texts;
  ryutilsGetTokens(list, &texts, '|', nullptr, 0, 0);
  return texts;
}
