// Message catalogues in the form of gettext's .mo files.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

/// Texts and their translations. A file that is broken anywhere is read as far as it can be: what lies outside it counts
/// as missing.
class MessageCatalogue {
 public:
  /// Takes the bytes of a file. One that is no catalogue, or that says it is in another encoding than UTF-8, has no texts.
  explicit MessageCatalogue(std::string file) : file_(std::move(file)) {
    constexpr std::uint32_t kMagic = 0x950412DE;
    const std::uint32_t magic = Number(0).value_or(0);
    is_swapped_ = magic == Swapped(kMagic);
    if (magic != kMagic && !is_swapped_) return;
    const std::uint32_t major = Number(4).value_or(0) >> 16U;
    originals_ = Number(12).value_or(0);
    translations_ = Number(16).value_or(0);
    const std::uint64_t end = std::uint64_t{8} * Number(8).value_or(0);
    if (major < 2 && std::max(originals_, translations_) + end <= file_.size())
      count_ = Number(8).value_or(0);
    if (!IsUtf8()) count_ = 0;
  }

  /// The translation, which lives as long as the catalogue; null if there is none.
  const char* Find(std::string_view text) const {
    std::uint32_t low = 0;
    std::uint32_t high = count_;
    while (low < high) {
      const std::uint32_t middle = low + (high - low) / 2;
      const char* const original = Text(originals_, middle);
      if (original == nullptr) return nullptr;
      if (text == original) return Text(translations_, middle);
      (original < text ? low : high) = original < text ? middle + 1 : middle;
    }
    return nullptr;
  }

 private:
  static std::uint32_t Swapped(std::uint32_t number) {
    return number << 24U | (number & 0xFF00U) << 8U | (number >> 8U & 0xFF00U) | number >> 24U;
  }

  std::optional<std::uint32_t> Number(std::uint64_t place) const {
    std::uint32_t number = 0;
    if (place + sizeof number > file_.size()) return {};
    std::memcpy(&number, file_.data() + place, sizeof number);
    return is_swapped_ ? Swapped(number) : number;
  }

  // A text of one of the two tables, which has lengths and places. Null if it does not end in a NUL inside the file.
  const char* Text(std::uint64_t table, std::uint32_t index) const {
    const std::uint64_t entry = table + std::uint64_t{8} * index;
    const std::uint64_t start = Number(entry + 4).value_or(0);
    const std::uint64_t end = start + Number(entry).value_or(0);
    return end < file_.size() && file_[end] == '\0' ? file_.data() + start : nullptr;
  }

  // The translation of the empty text is the head of the catalogue.
  bool IsUtf8() const {
    const char* const head = Find("");
    const char* const charset = head != nullptr ? std::strstr(head, "charset=") : nullptr;
    if (charset == nullptr) return true;
    std::string name(charset + 8, std::strcspn(charset + 8, " \t\r\n;"));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c; });
    return name == "UTF-8" || name == "UTF8" || name == "US-ASCII" || name == "ASCII";
  }

  std::string file_;
  bool is_swapped_ = false;  // written by a machine of the other byte order
  std::uint32_t count_ = 0;
  std::uint64_t originals_ = 0;
  std::uint64_t translations_ = 0;
};

}  // namespace platform
