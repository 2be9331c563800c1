// Arguments that are strings of the caller in an array which the call fills.
#pragma once

#include <rytree_host/framework.h>

#include <functional>

/// A copy of a text argument, for a call that fills strings of the caller before it is done with the text:
/// the text may be in one of them. Null stays null.
class OwnText {
 public:
  explicit OwnText(const char* text) : is_null_(text == nullptr), copy_(text) {}
  operator const char*() const { return is_null_ ? nullptr : copy_.GetString(); }

 private:
  const bool is_null_;
  const CString copy_;
};

/// The string, or null if it is an element of the array (which may be null), and so does not outlive its
/// filling.
inline CString* unless_element(CString* string, const CStringArray* array) {
  constexpr std::less<const CString*> before;
  const bool outside = array == nullptr || before(string, array->begin()) || !before(string, array->end());
  return outside ? string : nullptr;
}
