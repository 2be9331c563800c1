// Message catalogues in the form of gettext's .mo files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Texts and their translations. A file that is broken anywhere is read as far as it can be: what lies outside it counts
/// as missing.
class MessageCatalogue {
 public:
  /// Takes the bytes of a file. One that is no catalogue, or that says it is in another encoding than UTF-8, has no texts.
  explicit MessageCatalogue(std::string file);

  /// The translation, which lives as long as the catalogue; null if there is none.
  const char* Find(std::string_view text) const;

 private:
  std::optional<std::uint32_t> Number(std::uint64_t place) const;
  const char* Text(std::uint64_t table, std::uint32_t index) const;
  bool IsUtf8() const;

  std::string file_;
  bool is_swapped_ = false;  // written by a machine of the other byte order
  std::uint32_t count_ = 0;
  std::uint64_t originals_ = 0;
  std::uint64_t translations_ = 0;
};

}  // namespace platform
