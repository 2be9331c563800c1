// A value of one of the kinds that an attribute can be set from; empty when made without one.
#pragma once

#ifdef _WIN32

#include <comutil.h>

#else

#include <utility>
#include <variant>

#include "rytree_host/cstring.h"

struct _variant_t {
  _variant_t() = default;
  _variant_t(int number) : value(number) {}
  _variant_t(double number) : value(number) {}
  _variant_t(const char* text) : value(CString(text)) {}
  _variant_t(CString text) : value(std::move(text)) {}

  std::variant<std::monostate, int, double, CString> value;
};

#endif
