#include "rytree_host/multibyte.h"

#include <algorithm>
#include <climits>
#include <string_view>

#include "rytree_host/code_page.h"

namespace {

bool IsAscii(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

template <class Next>
int CompareFolded(const char* left, const char* right, const Next& next) noexcept {
  while (*left && *right) {
    if (*left == *right && IsAscii(*left)) {
      ++left;
      ++right;
      continue;
    }
    const char32_t a = utf8::fold(next(left));
    const char32_t b = utf8::fold(next(right));
    if (a != b) return a < b ? -1 : 1;
  }
  return (*left != '\0') - (*right != '\0');
}

// Four bytes for each character that is not ASCII, with none that is 0.
void AppendKey(std::string& key, char32_t code) {
  if (code < 0x80) {
    key += static_cast<char>(code);
    return;
  }
  for (int shift = 18; shift >= 0; shift -= 6) key += static_cast<char>(0x80U | (code >> shift & 0x3FU));
}

}  // namespace

int _mbsicmp(const char* left, const char* right) noexcept {
  if (!left) left = "";
  if (!right) right = "";
  const CodePage* const page = CodePage::Default();
  if (page) return CompareFolded(left, right, [page](const char*& text) { return page->Next(text); });
  return CompareFolded(left, right, [](const char*& text) { return utf8::next(text); });
}

std::string case_key(const char* text) {
  std::string key;
  if (!text) return key;
  const NarrowCharacters characters;
  while (*text) AppendKey(key, utf8::fold(characters.Next(text)));
  return key;
}

const char* _mbsinc(const char* text) noexcept {
  NarrowCharacters().Next(text);
  return text;
}

const char* _mbschr(const char* text, char character) noexcept {
  if (!text || !character) return nullptr;
  const NarrowCharacters characters;
  if (characters.StandsAlone(character)) return std::strchr(text, character);
  while (*text) {
    const char* const start = text;
    characters.Next(text);
    if (text - start == 1 && *start == character) return start;
  }
  return nullptr;
}

namespace rytree_host {

int lstrlenA(const char* text) noexcept {
  return text ? static_cast<int>(std::min<std::size_t>(std::strlen(text), INT_MAX)) : 0;
}

char* lstrcpynA(char* buffer, const char* text, int size) noexcept {
  if (!buffer || size < 1) return buffer;
  constexpr std::size_t kLongestCharacter = 4;
  const auto most = static_cast<std::size_t>(size) - 1;
  const std::string_view seen(text ? text : "", text ? strnlen(text, most + kLongestCharacter) : 0);
  const std::size_t length = NarrowCharacters().StartOf(seen, most);
  if (length) std::memmove(buffer, seen.data(), length);
  buffer[length] = '\0';
  return buffer;
}

}  // namespace rytree_host
