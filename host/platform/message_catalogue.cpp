#include "platform/message_catalogue.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace platform {

namespace {

std::uint32_t Swapped(std::uint32_t number) {
  return number << 24U | (number & 0xFF00U) << 8U | (number >> 8U & 0xFF00U) | number >> 24U;
}

}  // namespace

MessageCatalogue::MessageCatalogue(std::string file) : file_(std::move(file)) {
  constexpr std::uint32_t kMagic = 0x950412DE;
  const std::uint32_t magic = Number(0).value_or(0);
  is_swapped_ = magic == Swapped(kMagic);
  if (magic != kMagic && !is_swapped_) return;
  const std::uint32_t major = Number(4).value_or(0) >> 16U;
  originals_ = Number(12).value_or(0);
  translations_ = Number(16).value_or(0);
  const std::uint64_t end = std::uint64_t{8} * Number(8).value_or(0);
  if (major < 2 && std::max(originals_, translations_) + end <= file_.size()) count_ = Number(8).value_or(0);
  if (!IsUtf8()) count_ = 0;
}

const char* MessageCatalogue::Find(std::string_view text) const {
  std::uint32_t low = 0;
  std::uint32_t high = count_;
  while (low < high) {
    const std::uint32_t middle = low + (high - low) / 2;
    const char* const original = Text(originals_, middle);
    if (original == nullptr) return nullptr;
    if (text == original) return Text(translations_, middle);
    if (original < text) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return nullptr;
}

std::optional<std::uint32_t> MessageCatalogue::Number(std::uint64_t place) const {
  std::uint32_t number = 0;
  if (place + sizeof number > file_.size()) return {};
  std::memcpy(&number, file_.data() + place, sizeof number);
  return is_swapped_ ? Swapped(number) : number;
}

// A text of one of the two tables, which has lengths and places. Null if it does not end in a NUL inside the file.
const char* MessageCatalogue::Text(std::uint64_t table, std::uint32_t index) const {
  const std::uint64_t entry = table + std::uint64_t{8} * index;
  const std::uint64_t start = Number(entry + 4).value_or(0);
  const std::uint64_t end = start + Number(entry).value_or(0);
  return end < file_.size() && file_[end] == '\0' ? file_.data() + start : nullptr;
}

// The translation of the empty text is the head of the catalogue.
bool MessageCatalogue::IsUtf8() const {
  const char* const head = Find("");
  const char* const charset = head != nullptr ? std::strstr(head, "charset=") : nullptr;
  if (charset == nullptr) return true;
  std::string name(charset + 8, std::strcspn(charset + 8, " \t\r\n;"));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; });
  return name == "UTF-8" || name == "UTF8" || name == "US-ASCII" || name == "ASCII";
}

}  // namespace platform
