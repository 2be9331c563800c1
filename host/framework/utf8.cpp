#include "rytree_host/utf8.h"

#include <algorithm>
#include <iterator>

#include "case_table.h"

namespace utf8 {
namespace {

template <class Table>
char32_t Convert(const Table& table, char32_t code) noexcept {
  const auto* const run = std::lower_bound(std::begin(table), std::end(table), code,
                                           [](const CaseRun& r, char32_t c) { return r.last < c; });
  if (run == std::end(table) || code < run->first || (code - run->first) % run->stride != 0) return code;
  return static_cast<char32_t>(static_cast<int>(code) + run->delta);
}

}  // namespace

void append(std::string& text, char32_t code) {
  char bytes[4];
  text.append(bytes, put(bytes, code));
}

char32_t upper(char32_t code) noexcept {
  if (code < 0x80) return code >= 'a' && code <= 'z' ? code - 0x20 : code;
  return Convert(kToUpper, code);
}

char32_t lower(char32_t code) noexcept {
  if (code < 0x80) return code >= 'A' && code <= 'Z' ? code + 0x20 : code;
  return Convert(kToLower, code);
}

char32_t fold_high(char32_t code) noexcept { return Convert(kToFolded, code); }

}  // namespace utf8
