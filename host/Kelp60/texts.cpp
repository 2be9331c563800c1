#include <cstring>

#include "rytree_host/Kelp60.h"
#include "rytree_host/utf8.h"

namespace {

/// Tells whether the characters in front match, and moves behind them. The text may have ended.
bool step(const char*& filter, const char*& text, bool exact) {
  if (!*text) return false;
  const char32_t wanted = utf8::next(filter);
  const char32_t given = utf8::next(text);
  return wanted == '?' || wanted == given || (!exact && utf8::fold(wanted) == utf8::fold(given));
}

/// Moves `text` behind what the filter up to `end`, where no `*` stands, matches at its front.
bool step_to(const char* end, const char* filter, const char*& text, bool exact) {
  while (filter != end) {
    if (!step(filter, text, exact)) return false;
  }
  return true;
}

/// Moves `text` behind the first place that the filter up to `end` matches.
bool search(const char* end, const char* filter, const char*& text, bool exact) {
  for (;; utf8::next(text)) {
    const char* behind = text;
    if (step_to(end, filter, behind, exact)) {
      text = behind;
      return true;
    }
    if (!*text) return false;
  }
}

/// Moves `text` to its last `count` characters.
bool keep_last(std::size_t count, const char*& text) {
  const char* ahead = text;
  for (; count > 0; --count) {
    if (!*ahead) return false;
    utf8::next(ahead);
  }
  for (; *ahead; utf8::next(ahead)) utf8::next(text);
  return true;
}

std::size_t characters(const char* text) {
  std::size_t count = 0;
  for (; *text; ++count) utf8::next(text);
  return count;
}

/// The stretches between stars are taken at their first places, which never costs a match, and the last at
/// the end.
bool matches(const char* filter, const char* text, bool exact) {
  const char* star = std::strchr(filter, '*');
  if (!star) return step_to(filter + std::strlen(filter), filter, text, exact) && !*text;
  if (!step_to(star, filter, text, exact)) return false;
  for (;;) {
    filter = star + 1;
    star = std::strchr(filter, '*');
    if (!star) break;
    if (!search(star, filter, text, exact)) return false;
  }
  return keep_last(characters(filter), text) && step_to(filter + std::strlen(filter), filter, text, exact);
}

}  // namespace

char* kelp_find_char(char* text, char character, int /*option*/) {
  return text && character ? std::strchr(text, character) : nullptr;
}

char* kelp_find_closing_char(char* text, char character, int option, int* work) {
  if (work) *work = 0;
  return kelp_find_char(text, character, option);
}

int kelp_text_match(const char* filter, const char* text, int caseSensitive, int /*option1*/,
                    int /*option2*/) {
  return matches(filter ? filter : "", text ? text : "", caseSensitive != 0);
}
