// The character sets that the system converts.
#pragma once

#include <array>
#include <memory>
#include <string_view>

namespace platform {

// A character in UTF-8, with NULs after it. In a few sets a character stands for two of Unicode's, which fit as well.
using Utf8Character = std::array<char, 4>;

// A character set, one character at a time. Nothing is converted to what only resembles it.
class CharacterSet {
 public:
  CharacterSet() = default;
  CharacterSet(const CharacterSet&) = delete;
  CharacterSet& operator=(const CharacterSet&) = delete;
  virtual ~CharacterSet() = default;

  // All NULs unless the bytes are exactly one character.
  virtual Utf8Character Character(std::string_view bytes) = 0;
  // The bytes of a character of Unicode, valid until the next call; empty if the set lacks it.
  virtual std::string_view Bytes(char32_t code) = 0;
};

// Null for a set that the system does not know.
std::unique_ptr<CharacterSet> OpenSystemSet(std::string_view name);

}  // namespace platform
