// The localized texts of the host, from the message catalogues "rytree" of the platform's translation
// service.
#include <libintl.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace {

// The length of `text` cut to `most` bytes, or to fewer where that would split a character.
std::size_t CutLength(const char* text, std::size_t most) {
  std::size_t length = std::strlen(text);
  if (length <= most) return length;
  constexpr std::size_t kLongestTail = 3;
  const std::size_t least = most - std::min(most, kLongestTail);
  for (length = most; length > least; --length) {
    if ((static_cast<unsigned char>(text[length]) & 0xC0U) != 0x80) break;
  }
  return length;
}

}  // namespace

/// Fills `buffer` of `size` bytes with the localized text, or the text itself where there is none: always
/// ended with a NUL, and cut where it is too long, but never inside a UTF-8 character. Null `text` counts as
/// empty.
extern "C" __attribute__((visibility("default"))) void LocalizeString(char* buffer, int size,
                                                                      const char* text, int /*option*/) {
  if (!buffer || size < 1) return;
  // An empty text would ask for the head of the catalogue.
  const char* const localized = text && *text ? dgettext("rytree", text) : "";
  const std::size_t length = CutLength(localized, static_cast<std::size_t>(size) - 1);
  std::memmove(buffer, localized, length);
  buffer[length] = '\0';
}
