#include <cstddef>
#include <string_view>
#include <utility>

#include "rytree_host/code_page.h"
#include "rytree_host/multibyte.h"
#include "rytree_host/ryUtils.h"

namespace {

// Where the token at `text` ends: at the next separator outside quotes, or at the end of the text.
const char* TokenEnd(const char* text, char separator, char quote, bool& unpaired) {
  const NarrowCharacters characters;
  for (const char* next = text; *text; text = next) {
    if (static_cast<unsigned char>(*text) < 0x80) {
      ++next;
    } else {
      characters.Next(next);
      if (next - text > 1) continue;
    }
    if (*text == separator) break;
    if (!quote || *text != quote) continue;
    if (const char* partner = _mbschr(text + 1, quote)) {
      next = partner + 1;
    } else {
      unpaired = true;
    }
  }
  return text;
}

}  // namespace

int ryutilsGetTokens(const char* text, CStringArray* tokens, char separator, int* status, int quote,
                     int /*option*/) {
  CStringArray found;  // apart from `tokens`, because the text may be one of those
  bool unpaired = false;
  int count = 0;
  if (text && *text) {
    for (const char* end = nullptr;; text = end + 1) {
      end = TokenEnd(text, separator, static_cast<char>(quote), unpaired);
      if (tokens) found.Add(CString(std::string_view(text, static_cast<std::size_t>(end - text))));
      ++count;
      if (!*end) break;
    }
  }
  if (tokens) *tokens = std::move(found);
  if (status) *status = unpaired;
  return count;
}
