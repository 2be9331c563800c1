#include <cstring>

#include "rytree_host/Kelp60.h"
#include "rytree_host/utf8.h"

namespace {

// Whether the first characters of both match; moves past them. The text may have ended.
bool Step(const char*& filter, const char*& text, bool exact) {
  if (!*text) return false;
  const char32_t wanted = utf8::next(filter);
  const char32_t given = utf8::next(text);
  return wanted == '?' || wanted == given || (!exact && utf8::fold(wanted) == utf8::fold(given));
}

// Moves `text` past what the filter up to `end`, which has no `*`, matches at its start.
bool StepTo(const char* end, const char* filter, const char*& text, bool exact) {
  while (filter != end) {
    if (!Step(filter, text, exact)) return false;
  }
  return true;
}

// Moves `text` past the first place that the filter up to `end` matches.
bool Search(const char* end, const char* filter, const char*& text, bool exact) {
  for (;; utf8::next(text)) {
    const char* past = text;
    if (StepTo(end, filter, past, exact)) {
      text = past;
      return true;
    }
    if (!*text) return false;
  }
}

// Moves `text` to its last `count` characters.
bool KeepLast(std::size_t count, const char*& text) {
  const char* ahead = text;
  for (; count > 0; --count) {
    if (!*ahead) return false;
    utf8::next(ahead);
  }
  for (; *ahead; utf8::next(ahead)) utf8::next(text);
  return true;
}

std::size_t CountCharacters(const char* text) {
  std::size_t count = 0;
  for (; *text; ++count) utf8::next(text);
  return count;
}

// Each stretch between stars is matched at the first place it fits, which never loses a match, and the last
// stretch at the end of the text.
bool Matches(const char* filter, const char* text, bool exact) {
  const char* star = std::strchr(filter, '*');
  if (!star) return StepTo(filter + std::strlen(filter), filter, text, exact) && !*text;
  if (!StepTo(star, filter, text, exact)) return false;
  for (;;) {
    filter = star + 1;
    star = std::strchr(filter, '*');
    if (!star) break;
    if (!Search(star, filter, text, exact)) return false;
  }
  return KeepLast(CountCharacters(filter), text) && StepTo(filter + std::strlen(filter), filter, text, exact);
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
  return Matches(filter ? filter : "", text ? text : "", caseSensitive != 0);
}
