// A search whose time does not depend on what the texts are like.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// The first place at or after `from` where `stretch` stands in `text`, npos for none. Each character of both
/// is looked at once or twice, where a plain search compares a stretch like "aaa…b" anew at each place of
/// "aaa…a" (Knuth, Morris and Pratt).
template <class Char>
std::size_t FindStretch(std::basic_string_view<Char> text, std::basic_string_view<Char> stretch,
                        std::size_t from) {
  if (from > text.size() || stretch.size() > text.size() - from) return text.npos;
  if (stretch.empty()) return from;
  // For each number of characters that match: how many still do if the last of them starts nothing longer.
  std::vector<std::size_t> fewer(stretch.size() + 1);
  const auto extended = [&](std::size_t matched, Char next) {
    while (matched > 0 && stretch[matched] != next) matched = fewer[matched];
    return stretch[matched] == next ? matched + 1 : 0;
  };
  for (std::size_t i = 1; i < stretch.size(); ++i) fewer[i + 1] = extended(fewer[i], stretch[i]);
  std::size_t matched = 0;
  for (std::size_t at = from; at < text.size(); ++at) {
    matched = extended(matched, text[at]);
    if (matched == stretch.size()) return at + 1 - matched;
  }
  return text.npos;
}
