#include <charconv>
#include <climits>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "rytree_host/Kelp60.h"

int string_to_prefix_end_number(char* prefix, const char* text) {
  if (!text) text = "";
  std::size_t length = std::strlen(text);
  std::int64_t number = 0;
  std::int64_t unit = 1;
  for (; length > 0 && text[length - 1] >= '0' && text[length - 1] <= '9'; --length) {
    const std::int64_t with = number + unit * (text[length - 1] - '0');
    if (with > INT_MAX) break;
    number = with;
    if (unit <= INT_MAX) unit *= 10;  // past that only zeros fit
  }
  if (prefix) {
    std::memmove(prefix, text, length);
    prefix[length] = '\0';
  }
  return static_cast<int>(number);
}

const char* kelp_number_to_text(int number) {
  thread_local char buffer[12];
  *std::to_chars(std::begin(buffer), std::end(buffer), number).ptr = '\0';
  return buffer;
}

int kelp_default_number() { return 256; }
