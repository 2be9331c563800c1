// Small types of the platform and records of the host.
#pragma once

#include <cstdint>
#include <utility>
#include <variant>

#include "rytree_host/carray.h"
#include "rytree_host/cstring.h"

using DWORD = std::uint32_t;

/// A value of one of the kinds that an attribute can be set from; empty when made without one.
struct _variant_t {
  _variant_t() = default;
  _variant_t(int number) : value(number) {}
  _variant_t(double number) : value(number) {}
  _variant_t(const char* text) : value(CString(text)) {}
  _variant_t(CString text) : value(std::move(text)) {}

  std::variant<std::monostate, int, double, CString> value;
};

/// Options of a text node; there are none yet.
struct STNODETEXTOPTS {};

/// The vector of a node.
struct tagRYSOBJVECT {
  CArray<double, double> values;
};
