// The narrow string of the framework.
#pragma once

#include <algorithm>
#include <climits>
#include <compare>
#include <concepts>
#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "rytree_host/export.h"

/// A growing narrow string that knows its length and may hold any bytes, NUL too.
///
/// A null `const char*` counts as the empty string. Indexes and counts outside the string are cut to it,
/// whatever their size: a read there gives 0, a write does nothing. Positions count bytes, and parts are cut
/// at just those. Case, searches and trimming go by the characters of the default page (code_page.h), never
/// by the locale: nothing is found in the middle of a character.
class CString {
 public:
  CString() noexcept = default;
  CString(const char* text) : text_(Narrow(text)) {}
  CString(const char* text, int length) : text_(text ? text : "", text ? Count(length) : 0) {}
  CString(char character, int count) : text_(Count(count), character) {}
  explicit CString(std::string_view text) : text_(text) {}
  explicit CString(std::string&& text) noexcept : text_(std::move(text)) {}

  CString& operator=(const char* text) {
    text_.assign(Narrow(text));
    return *this;
  }

  operator const char*() const noexcept { return text_.c_str(); }
  const char* GetString() const noexcept { return text_.c_str(); }
  std::string_view View() const noexcept { return text_; }
  /// `text` must not be a part of this string.
  void Assign(const char* text, std::size_t length) {
    // What the string holds stays if there is no memory for the text. A shorter one always has room.
    if (length > 15 && length > text_.capacity()) return std::string(text, length).swap(text_);
    text_.clear();  // then append: twice as fast as an assignment, which looks for an overlap
    text_.append(text, length);
  }

  int GetLength() const noexcept { return static_cast<int>((std::min<std::size_t>)(text_.size(), INT_MAX)); }
  bool IsEmpty() const noexcept { return text_.empty(); }
  void Empty() noexcept { text_.clear(); }

  char GetAt(int index) const noexcept {
    return Inside(index) ? text_[static_cast<std::size_t>(index)] : '\0';
  }
  void SetAt(int index, char character) noexcept {
    if (Inside(index)) text_[static_cast<std::size_t>(index)] = character;
  }
  template <std::integral Index>
  char operator[](Index index) const noexcept {
    return std::in_range<int>(index) ? GetAt(static_cast<int>(index)) : '\0';
  }

  CString& operator+=(const CString& text) { return text_ += text.text_, *this; }
  CString& operator+=(const char* text) { return text_ += Narrow(text), *this; }
  CString& operator+=(char character) { return text_ += character, *this; }

  friend CString operator+(CString left, const CString& right) { return std::move(left += right); }
  friend CString operator+(CString left, const char* right) { return std::move(left += right); }
  friend CString operator+(CString left, char right) { return std::move(left += right); }
  friend CString operator+(const char* left, const CString& right) { return CString(left) + right; }
  friend CString operator+(char left, const CString& right) { return CString(left, 1) + right; }

  // Bytes are compared as unsigned numbers.
  friend bool operator==(const CString& left, const CString& right) noexcept {
    return left.text_ == right.text_;
  }
  friend bool operator==(const CString& left, const char* right) noexcept {
    return left.text_ == Narrow(right);
  }
  friend std::strong_ordering operator<=>(const CString& left, const CString& right) noexcept {
    return left.text_ <=> right.text_;
  }
  friend std::strong_ordering operator<=>(const CString& left, const char* right) noexcept {
    return left.View() <=> Narrow(right);
  }

  /// Below 0, 0 or above 0 if this string is less than, equal to or greater than `text`.
  int Compare(const char* text) const noexcept { return View().compare(Narrow(text)); }
  /// The same on the case-folded characters, as _mbsicmp.
  RYFRAMEWORK_API int CompareNoCase(const char* text) const noexcept;

  /// Replaces the string by the `printf` form of the arguments, which may come from the string itself.
  RYFRAMEWORK_API void Format(const char* format, ...) RYTREE_PRINTF(2, 3);
  RYFRAMEWORK_API void FormatV(const char* format, std::va_list arguments) RYTREE_PRINTF(2, 0);
  /// Appends the `printf` form of the arguments.
  RYFRAMEWORK_API void AppendFormat(const char* format, ...) RYTREE_PRINTF(2, 3);

  /// The first place at or after `start`, -1 for none. An empty text is found at `start`.
  RYFRAMEWORK_API int Find(const char* text, int start = 0) const;
  RYFRAMEWORK_API int Find(char character, int start = 0) const noexcept;
  /// The last place of the character, -1 for none.
  RYFRAMEWORK_API int ReverseFind(char character) const noexcept;

  CString Left(int count) const { return CString(View().substr(0, Count(count))); }
  CString Mid(int first) const { return Mid(first, INT_MAX); }
  CString Mid(int first, int count) const { return CString(View().substr(Place(first), Count(count))); }
  CString Right(int count) const {
    return CString(View().substr(text_.size() - (std::min)(Count(count), text_.size())));
  }

  /// All three give the new length.
  RYFRAMEWORK_API int Insert(int index, const char* text);
  RYFRAMEWORK_API int Insert(int index, char character);
  RYFRAMEWORK_API int Delete(int index, int count = 1);
  /// Remove a character, or replace `old` by `now`, wherever it occurs. All give the number of places.
  RYFRAMEWORK_API int Remove(char character);
  RYFRAMEWORK_API int Replace(const char* old, const char* now);
  RYFRAMEWORK_API int Replace(char old, char now) noexcept;

  /// Remove white space, one character or any character of a set from one end.
  RYFRAMEWORK_API CString& TrimLeft(const char* set = " \t\n\v\f\r");
  RYFRAMEWORK_API CString& TrimLeft(char character);
  RYFRAMEWORK_API CString& TrimRight(const char* set = " \t\n\v\f\r");
  RYFRAMEWORK_API CString& TrimRight(char character);

  /// Change the case of each character that has a single counterpart in the default page; the length in bytes
  /// may change.
  RYFRAMEWORK_API CString& MakeUpper();
  RYFRAMEWORK_API CString& MakeLower();

  /// Room for at least `length` bytes to write into; `ReleaseBuffer` closes it at `length`, or at the first
  /// NUL for -1.
  RYFRAMEWORK_API char* GetBuffer(int length = 0);
  RYFRAMEWORK_API char* GetBufferSetLength(int length);
  RYFRAMEWORK_API void ReleaseBuffer(int length = -1) noexcept;

 private:
  static std::string_view Narrow(const char* text) noexcept {
    return text ? std::string_view(text) : std::string_view();
  }
  static std::size_t Count(int count) noexcept { return count > 0 ? static_cast<std::size_t>(count) : 0; }
  std::size_t Place(int index) const noexcept { return (std::min)(Count(index), text_.size()); }
  bool Inside(int index) const noexcept {
    return index >= 0 && static_cast<std::size_t>(index) < text_.size();
  }

  std::string text_;
};
