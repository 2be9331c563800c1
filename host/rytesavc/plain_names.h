// Names that come again, which most do: they are recognised by their bytes alone, without a look-up.
//
// The text is padded as in plain_scan.h.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "rytree_host/detail/tree_store.h"
#include "xml_builder.h"
#include "xml_characters.h"

namespace rytesavc {

// Whether the text at `at` starts with the name. What comes after it is for others to see.
inline bool IsNameAt(const Name& name, const char* at) {
  return TextWords::OfPadded(at, name.length) == name.words() && IsRestSame(name.text(), at, name.length);
}

// Whether a tag's name ends before this byte.
inline bool EndsTagName(char next) { return next == '>' || next == '/' || IsXmlBlank(next); }

// The place after the rest of an end tag, from its name on, if that is just the tag's name and '>'; else null.
inline char* PlainEnd(const NameText& tag, char* name) {
  const std::size_t length = tag.view.size();
  const bool plain = TextWords::OfPadded(name, length) == tag.words &&
                     IsRestSame(tag.view.data(), name, length) && name[length] == '>';
  return plain ? name + length + 1 : nullptr;
}

// An attribute's name with the '=' and the quotation mark after it.
class KnownName {
 public:
  // What is at `at`, up to `end`. More than 16 bytes are only kept if they are a name of the tree without blanks.
  void Set(const char* at, const char* end, const Name* name) {
    const auto bytes = static_cast<std::size_t>(end - at);
    const bool kept = bytes <= TextWords::kBytes || bytes == name->length + kMarks;
    length_ = bytes;
    mask_ = kept ? kFirstBytes[std::min(bytes, TextWords::kBytes)] : TextWords{};
    words_ = kept ? TextWords::Load(at) & mask_ : kNever;
    name_ = name;
    quote_ = end[-1];
  }
  [[gnu::always_inline]] bool IsAt(const char* at) const {
    return (TextWords::Load(at) & mask_) == words_ && (length_ <= TextWords::kBytes || IsRestAt(at));
  }
  std::size_t length() const { return length_; }
  const Name* name() const { return name_; }

 private:
  static constexpr std::size_t kMarks = 2;  // the '=' and the quotation mark
  static constexpr TextWords kNever{1, 0};  // what no bytes are, if none are looked at

  bool IsRestAt(const char* at) const {
    return IsRestSame(name_->text(), at, name_->length) && at[length_ - 2] == '=' &&
           at[length_ - 1] == quote_;
  }

  TextWords words_ = kNever;
  TextWords mask_;
  std::size_t length_ = 0;
  const Name* name_ = nullptr;
  char quote_ = 0;
};

// The names of attributes that were read last. Which of them comes next is guessed first from its place among the
// attributes of a tag, and then from its first bytes.
class KnownNames {
 public:
  KnownNames() { last_.fill(all_.data()); }

  static std::size_t Next(std::size_t place) { return (place + 1) % kPlaces; }
  KnownName* Last(std::size_t place) const { return last_[place]; }
  // From now on this is the last one at the place. Names with the same first bytes are kept apart at different places.
  KnownName* Guess(const char* at, std::size_t place) {
    constexpr std::uint32_t kSpread = 0x9E3779B1;
    const auto start = static_cast<std::uint32_t>(LoadWord(at) & 0xFFFFFF);
    return last_[place] = &all_[(start * kSpread >> (32 - kBits)) ^ place];
  }

 private:
  static constexpr std::size_t kPlaces = 8;
  static constexpr unsigned kBits = 4;

  std::array<KnownName, std::size_t{1} << kBits> all_;
  std::array<KnownName*, kPlaces> last_;
};

}  // namespace rytesavc
