// The system's conversion between character sets.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace platform {

// A character set by its number or its name, one character at a time. Nothing is converted to what only
// resembles it.
class CharacterSet {
 public:
  // The name is for systems that know it by that.
  CharacterSet(int number, const char* name);
  CharacterSet(const CharacterSet&) = delete;
  CharacterSet& operator=(const CharacterSet&) = delete;
  ~CharacterSet();

  bool is_known() const;
  // The character of Unicode, if the bytes are just one; else 0.
  char32_t Code(std::string_view bytes);
  // The bytes of a character of Unicode, which are gone after the next call; empty if the set lacks it.
  std::string_view Bytes(char32_t code);

 private:
  class Work;
  std::unique_ptr<Work> work_;
};

// Converts text of a character set to UTF-8, in pieces.
class Decoder {
 public:
  // How a conversion ended: with all input, with no more room, or before bytes that are no character, or that
  // are the start of one.
  enum class End { kDone, kFull, kInvalid, kCut };

  explicit Decoder(const char* charset);
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
  ~Decoder();

  bool is_known() const;
  // Moves past what it reads and what it writes. With null `in` it writes what the conversion has held back.
  End Convert(const char*& in, std::size_t& in_left, char*& out, std::size_t& out_left);

 private:
  class Work;
  std::unique_ptr<Work> work_;
};

}  // namespace platform
