// Text of another character set as UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "framework/character_sets.h"

namespace rytesavc {

// Converts in pieces. Characters that were looked up are kept.
class Decoder {
 public:
  // How a conversion ended: with all input, with no more room, or before bytes that are no character, or that
  // may be the start of one.
  enum class End { kDone, kFull, kInvalid, kCut };

  explicit Decoder(std::string_view charset);

  bool is_known() const { return set_ != nullptr; }
  // Moves past what it reads and what it writes.
  End Convert(const char*& in, std::size_t& in_left, char*& out, std::size_t& out_left);

 private:
  enum Kind : unsigned char { kUnknown, kNone, kCharacter };
  struct alignas(8) Entry {
    platform::Utf8Character bytes{};
    unsigned char length = 0;
    Kind kind = kUnknown;
  };
  struct LongEntry {
    std::uint32_t from = 0;
    Entry to;
  };
  using Row = std::array<Entry, 256>;

  const Entry& LookUp(Entry& entry, std::string_view bytes);
  const Entry* Next(std::string_view text, std::size_t& length);
  const Entry& Long(std::string_view bytes);

  std::unique_ptr<platform::CharacterSet> set_;
  std::size_t longest_;                          // bytes of a character
  Row singles_;                                  // by byte
  std::array<std::unique_ptr<Row>, 256> pairs_;  // by first byte, then by second
  std::vector<LongEntry> long_;                  // the last that was read for each hash
};

}  // namespace rytesavc
