#include "decoder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace rytesavc {

namespace {

constexpr std::size_t kLongChoices = 1024;

// How many bytes at the start of the text are ASCII.
std::size_t AsciiLength(const char* text, std::size_t size) {
  std::size_t length = 0;
  for (std::uint64_t word = 0; length + sizeof word <= size; length += sizeof word) {
    std::memcpy(&word, text + length, sizeof word);
    if ((word & 0x8080808080808080U) != 0) break;
  }
  while (length < size && static_cast<unsigned char>(text[length]) < 0x80) ++length;
  return length;
}

}  // namespace

Decoder::Decoder(std::string_view charset)
    : set_(OpenCharacterSet(charset)), longest_(charset == "GB18030" ? 4 : 3) {
  for (std::size_t byte = 0; byte < 0x80; ++byte) {
    singles_[byte].bytes[0] = static_cast<char>(byte);
    singles_[byte].length = 1;
    singles_[byte].kind = kCharacter;
  }
}

const Decoder::Entry& Decoder::LookUp(Entry& entry, std::string_view bytes) {
  entry.bytes = set_->Character(bytes);
  const auto* const end = std::find(entry.bytes.begin(), entry.bytes.end(), '\0');
  entry.length = static_cast<unsigned char>(end - entry.bytes.begin());
  entry.kind = entry.length != 0 ? kCharacter : kNone;
  return entry;
}

const Decoder::Entry& Decoder::Long(std::string_view bytes) {
  if (long_.empty()) long_.resize(kLongChoices);
  std::uint32_t from = 0;
  for (const char byte : bytes) from = from << 8U | static_cast<unsigned char>(byte);
  LongEntry& kept = long_[(from ^ from >> 15U) % kLongChoices];
  if (kept.from == from) return kept.to;
  kept.from = from;
  return LookUp(kept.to, bytes);
}

// The character at the start of the text, unless that is a byte that is kept as one; null if there is none, or only its start.
const Decoder::Entry* Decoder::Next(std::string_view text, std::size_t& length) {
  const auto first = static_cast<unsigned char>(text[0]);
  length = 1;
  Entry& single = singles_[first];
  if (single.kind == kUnknown && LookUp(single, text.substr(0, 1)).kind == kCharacter) return &single;
  if (text.size() == 1) return nullptr;

  length = 2;
  if (!pairs_[first]) pairs_[first] = std::make_unique<Row>();
  Entry& pair = (*pairs_[first])[static_cast<unsigned char>(text[1])];
  if (pair.kind == kUnknown) LookUp(pair, text.substr(0, 2));
  if (pair.kind == kCharacter) return &pair;

  length = longest_;
  if (text.size() < length) return nullptr;
  const Entry& entry = Long(text.substr(0, length));
  return entry.kind == kCharacter ? &entry : nullptr;
}

Decoder::End Decoder::Convert(const char*& in, std::size_t& in_left, char*& out, std::size_t& out_left) {
  const char* from = in;
  char* to = out;
  std::size_t left = in_left;
  std::size_t room = out_left;
  End end = End::kDone;
  while (left > 0) {
    const auto first = static_cast<unsigned char>(*from);
    std::size_t length = first < 0x80 ? AsciiLength(from, std::min(left, room)) : 0;
    std::size_t written = length;
    if (length != 0) {
      std::memcpy(to, from, length);
    } else {
      length = 1;
      const Entry* entry = &singles_[first];
      if (entry->kind != kCharacter && left > 1 && pairs_[first]) {
        entry = &(*pairs_[first])[static_cast<unsigned char>(from[1])];
        length = 2;
      }
      if (entry->kind != kCharacter) entry = Next({from, left}, length);
      if (entry == nullptr) {
        end = left < longest_ ? End::kCut : End::kInvalid;
        break;
      }
      written = entry->length;
      if (written > room) {
        end = End::kFull;
        break;
      }
      const platform::Utf8Character& bytes = entry->bytes;
      std::memcpy(to, bytes.data(), room < bytes.size() ? written : bytes.size());
    }
    from += length;
    left -= length;
    to += written;
    room -= written;
  }
  in = from;
  in_left = left;
  out = to;
  out_left = room;
  return end;
}

}  // namespace rytesavc
