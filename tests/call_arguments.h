// Arguments of the calls in tests: arrays that hold a list, and bad arguments.
#pragma once

#include <rytree_host/ryUtils.h>

#include <cstdlib>
#include <type_traits>

#include "tree_text.h"

/// The items of a list "a,b", so many times; "" is an empty list.
inline CStringArray items_of(const std::string& list, int times = 1) {
  CStringArray once;
  CStringArray items;
  ryutilsGetTokens(list.c_str(), &once, ',', nullptr, 0, 0);
  for (int i = 0; i < times; ++i) items.Append(once);
  return items;
}

/// A host array that holds a list.
template <class HostArray>
class Holding : public HostArrayObject {
 public:
  explicit Holding(const std::string& list = "", int times = 1) {
    using Item = std::remove_cvref_t<decltype(array()[0])>;
    for (const CString& item : items_of(list, times)) {
      if constexpr (std::is_same_v<Item, CString>) {
        array().Add(item);
      } else {
        array().Add(static_cast<Item>(std::strtod(item, nullptr)));
      }
    }
  }
  auto& array() { return host_.array(); }
  void* GetInternalArray(int code, void* scratch) override { return host_.GetInternalArray(code, scratch); }

 private:
  HostArray host_;
};
using Strings = Holding<HostStringArray>;
using Ints = Holding<HostIntArray>;
using Doubles = Holding<HostDoubleArray>;
using Bools = Holding<HostBoolArray>;

/// The list that an array holds.
std::string list_of(const auto& items) {
  std::ostringstream list;
  const char* separator = "";
  for (const auto& item : items) {
    list << std::exchange(separator, ",");
    if constexpr (std::is_same_v<decltype(item), const CString&>) {
      list << item.View();
    } else {
      list << item;
    }
  }
  return list.str();
}

/// What a function gives when one argument is bad: a node null and dead, an array null and of no kind, any other
/// pointer null. "0 -1,1" tells of two arguments, the first of which is bad in two ways; "" is of a void function.
template <class Result, class... Parameter>
std::string with_bad(Result (*function)(Parameter...), std::type_identity_t<Parameter>... given) {
  struct NoArray final : HostArrayObject {
    void* GetInternalArray(int /*code*/, void* /*scratch*/) override { return nullptr; }
  };
  std::string results;
  const auto call = [&](auto& place, auto bad, [[maybe_unused]] const char* separator) {
    const auto good = std::exchange(place, bad);
    if constexpr (std::is_void_v<Result>) {
      function(given...);
    } else {
      const int result = static_cast<int>(function(given...));
      results.append(results.empty() ? "" : separator).append(std::to_string(result));
    }
    place = good;
  };
  const auto spoil = [&](auto& place) {
    using Place = std::remove_reference_t<decltype(place)>;
    RYXmlWrapperBase dead = dead_node();
    NoArray no_array;
    if constexpr (std::is_same_v<Place, RYXmlWrapperBase>) call(place, dead, ",");
    if constexpr (std::is_pointer_v<Place>) call(place, Place{}, ",");
    if constexpr (std::is_same_v<Place, RYXmlWrapperBase*>) call(place, &dead, " ");
    if constexpr (std::is_same_v<Place, HostArrayObject*>) call(place, &no_array, " ");
  };
  (spoil(given), ...);
  return results;
}
