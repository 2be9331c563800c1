// The encoding of the narrow strings.
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "rytree_host/export.h"
#include "rytree_host/utf8.h"

/// An encoding other than UTF-8, with characters of one or two bytes. A byte below 0x80 that starts a
/// character is the ASCII character. Characters are those that the platform's conversion takes to Unicode and
/// back to the same bytes. The start of a pair, followed by a byte that can end one, is one character even if
/// Unicode has nothing for it; any other byte that is not a character stands for itself.
class RYFRAMEWORK_API CodePage {
 public:
  /// The encoding of all narrow strings of the process: null for UTF-8, as at the start.
  static const CodePage* Default() noexcept { return default_.load(std::memory_order_acquire); }
  /// 65001 (UTF-8), 1250 to 1258, 932, 936, 949, 950 or 28591; false for another one, which changes nothing.
  static bool SetDefault(int number);

  int number() const noexcept { return number_; }
  /// Whether the byte can be the first of two, or any of two.
  bool StartsPair(char unit) const noexcept {
    return (roles_[static_cast<unsigned char>(unit)] & kStarts) != 0;
  }
  bool InPair(char unit) const noexcept { return roles_[static_cast<unsigned char>(unit)] != 0; }

  /// Reads the character at `text` and moves past it. The text has at least one more byte, and ends with a
  /// NUL or after `length` bytes. What Unicode has nothing for is read as utf8::kStray plus its bytes.
  char32_t Next(const char*& text, std::size_t length = 2) const noexcept {
    const auto first = static_cast<unsigned char>(*text++);
    if (first < 0x80) return first;
    std::size_t bytes = first;
    if (length > 1 && IsPair(text[-1], *text)) bytes = 256 * bytes + static_cast<unsigned char>(*text++);
    const char32_t code = codes_[bytes];
    return code != 0 ? code : utf8::kStray + static_cast<char32_t>(bytes);
  }
  /// Appends a character; what Next gave is written as the bytes it was read from. False if the page lacks
  /// it.
  bool Append(std::string& text, char32_t code) const;
  bool Has(char32_t code) const noexcept { return code < 0x80 || (code < 0x10000 && bytes_[code] != 0); }

  /// These append to `to` and give how much of the text they converted: not all of it if a character follows
  /// that the other encoding lacks.
  std::size_t ToUtf8(std::string_view text, std::string& to) const;
  std::size_t FromUtf8(std::string_view text, std::string& to) const;

 private:
  struct Listed;
  static const Listed kPages[];

  explicit CodePage(const Listed& page);
  static std::unique_ptr<const CodePage> Build(const Listed& page);

  bool IsPair(char first, char second) const noexcept {
    return StartsPair(first) && (roles_[static_cast<unsigned char>(second)] & kEnds) != 0;
  }

  static std::atomic<const CodePage*> default_;

  enum Role : unsigned char { kStarts = 1, kEnds = 2 };  // of bytes in pairs
  int number_;
  unsigned char roles_[256] = {};
  // Codes by bytes (of a pair, the first is the high byte), and bytes by codes; 0 for none.
  char16_t codes_[0x10000] = {};
  char16_t bytes_[0x10000] = {};
};

/// The characters of narrow strings, in the encoding that was the default when this was made. A byte that
/// belongs to no character is one by itself.
class RYFRAMEWORK_API NarrowCharacters {
 public:
  /// As CodePage::Next and utf8::next.
  char32_t Next(const char*& text, std::size_t length = 4) const noexcept {
    return page_ == nullptr ? utf8::next(text, length) : page_->Next(text, length);
  }
  /// Appends what a character was converted to, or the character if the encoding lacks that.
  void Append(std::string& text, char32_t code, char32_t converted) const;

  /// Whether the byte is a character wherever it occurs.
  bool StandsAlone(char unit) const noexcept {
    return page_ == nullptr ? static_cast<unsigned char>(unit) < 0x80 : !page_->InPair(unit);
  }
  /// The start of the character that the byte at `place` belongs to; `place` at the end of the text.
  std::size_t StartOf(std::string_view text, std::size_t place) const noexcept;
  /// Whether `wanted` splits no character wherever it is found.
  bool IsWhole(std::string_view wanted) const noexcept {
    return wanted.empty() || (StandsAlone(wanted.front()) && StandsAlone(wanted.back())) || EndsWhole(wanted);
  }
  /// The first place at or after `start`, where a character starts, at which `wanted` is found as whole
  /// characters.
  std::size_t Find(std::string_view text, std::string_view wanted, std::size_t start) const;

 private:
  std::size_t Skip(std::string_view text, std::size_t from, std::size_t place) const noexcept;
  bool EndsWhole(std::string_view wanted) const noexcept;
  std::size_t FindCharacters(std::string_view text, std::string_view wanted, std::size_t start) const;

  const CodePage* page_ = CodePage::Default();
};
