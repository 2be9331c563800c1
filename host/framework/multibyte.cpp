#include "rytree_host/multibyte.h"

#include <algorithm>
#include <climits>

#include "rytree_host/utf8.h"

int _mbsicmp(const char* left, const char* right) noexcept {
  if (!left) left = "";
  if (!right) right = "";
  while (*left && *right) {
    if (*left == *right && static_cast<unsigned char>(*left) < 0x80) {
      ++left;
      ++right;
      continue;
    }
    const char32_t a = utf8::fold(utf8::next(left));
    const char32_t b = utf8::fold(utf8::next(right));
    if (a != b) return a < b ? -1 : 1;
  }
  return (*left != '\0') - (*right != '\0');
}

int lstrlenA(const char* text) noexcept {
  return text ? static_cast<int>(std::min<std::size_t>(std::strlen(text), INT_MAX)) : 0;
}

char* lstrcpynA(char* buffer, const char* text, int size) noexcept {
  if (!buffer || size < 1) return buffer;
  const std::size_t length = text ? strnlen(text, static_cast<std::size_t>(size) - 1) : 0;
  if (length) std::memmove(buffer, text, length);
  buffer[length] = '\0';
  return buffer;
}
