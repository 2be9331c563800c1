#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "rytree_host/Kelp60.h"
#include "rytree_host/code_page.h"
#include "rytree_host/find_stretch.h"
#include "wildcard_search.h"

namespace {

constexpr char32_t kAny = '?';

// A text that stretches of a filter, between its stars, are matched with one after the other.
class Matching {
 public:
  Matching(const char* text, bool exact) : text_(text), exact_(exact) {}

  bool IsAtEnd() const { return *text_ == '\0'; }
  // Moves past what a stretch matches right here.
  bool Take(const char* filter, const char* end) { return Take(filter, end, text_); }
  // Moves past the first place that it matches.
  bool Search(const char* filter, const char* end);
  // Moves past the last characters of the text if the stretch matches them.
  bool TakeLast(const char* filter, const char* end);

 private:
  bool Take(const char* filter, const char* end, const char*& text) const;
  bool SearchCharacters(const char* filter, const char* end);
  char32_t Next(const char*& text) const {
    const char32_t code = reader_.Next(text);
    return exact_ ? code : utf8::fold(code);
  }

  const NarrowCharacters reader_;
  const char* text_;
  const bool exact_;
  // What a search that takes long goes through: the characters from there on, and where each one stands.
  std::u32string characters_;
  std::vector<const char*> places_;
};

bool Matching::Take(const char* filter, const char* end, const char*& text) const {
  while (filter != end) {
    if (!*text) return false;
    const char32_t wanted = reader_.Next(filter);
    const char32_t given = reader_.Next(text);
    if (wanted != given && wanted != kAny && (exact_ || utf8::fold(wanted) != utf8::fold(given)))
      return false;
  }
  return true;
}

bool Matching::Search(const char* filter, const char* end) {
  constexpr std::ptrdiff_t kMostForEach = 8;
  std::ptrdiff_t allowed = 256;  // bytes to look at
  for (;; reader_.Next(text_), allowed += kMostForEach) {
    const char* after = text_;
    if (Take(filter, end, after)) {
      text_ = after;
      return true;
    }
    if (!*text_) return false;
    allowed -= after - text_;
    if (allowed < 0) return SearchCharacters(filter, end);
  }
}

bool Matching::SearchCharacters(const char* filter, const char* end) {
  if (places_.empty()) {
    const char* at = text_;
    for (places_.push_back(at); *at; places_.push_back(at)) characters_ += Next(at);
  }
  std::u32string stretch;
  while (filter != end) stretch += Next(filter);
  const auto from =
      static_cast<std::size_t>(std::lower_bound(places_.begin(), places_.end(), text_) - places_.begin());
  const std::size_t found =
      stretch.find(kAny) == stretch.npos
          ? FindStretch(std::u32string_view(characters_), std::u32string_view(stretch), from)
          : WildcardSearch(stretch, kAny).Find(characters_, from);
  if (found == characters_.npos) return false;
  text_ = places_[found + stretch.size()];
  return true;
}

bool Matching::TakeLast(const char* filter, const char* end) {
  const char* ahead = text_;
  for (const char* at = filter; at != end; reader_.Next(at)) {
    if (!*ahead) return false;
    reader_.Next(ahead);
  }
  for (; *ahead; reader_.Next(ahead)) reader_.Next(text_);
  return Take(filter, end);
}

// Each stretch between stars is matched at the first place it fits, which never loses a match, and the last
// stretch at the end of the text.
bool Matches(const char* filter, const char* text, bool exact) {
  Matching matching(text, exact);
  const char* const end = filter + std::strlen(filter);
  const char* star = std::strchr(filter, '*');
  if (!star) return matching.Take(filter, end) && matching.IsAtEnd();
  if (!matching.Take(filter, star)) return false;
  for (;;) {
    filter = star + 1;
    star = std::strchr(filter, '*');
    if (!star) return matching.TakeLast(filter, end);
    if (!matching.Search(filter, star)) return false;
  }
}

}  // namespace

int kelp_text_match(const char* filter, const char* text, int caseSensitive, int /*option1*/,
                    int /*option2*/) {
  return Matches(filter ? filter : "", text ? text : "", caseSensitive != 0);
}
