#include "columns.h"

#include <rytree_host/utf8.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace {

using Range = std::pair<char32_t, char32_t>;

constexpr std::array<Range, 7> kNoWidth = {{{0x300, 0x36F},
                                            {0x483, 0x489},
                                            {0x591, 0x5BD},
                                            {0x200B, 0x200F},
                                            {0x20D0, 0x20FF},
                                            {0xFE00, 0xFE0F},
                                            {0xFEFF, 0xFEFF}}};
constexpr std::array<Range, 9> kTwoWide = {{{0x1100, 0x115F},
                                            {0x2E80, 0x303E},
                                            {0x3041, 0xA4CF},
                                            {0xAC00, 0xD7A3},
                                            {0xF900, 0xFAFF},
                                            {0xFE30, 0xFE6F},
                                            {0xFF00, 0xFF60},
                                            {0x1F300, 0x1FAFF},
                                            {0x20000, 0x3FFFD}}};

template <std::size_t N>
bool in(const std::array<Range, N>& ranges, char32_t code) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [code](const Range& range) { return code >= range.first && code <= range.second; });
}

std::string escape(char32_t code) {
  if (code == '\n') return "\\n";
  if (code == '\t') return "\\t";
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "\\x%02X", static_cast<unsigned>(code & 0xFFU));
  return text.data();
}

}  // namespace

Cell::Cell(std::string_view text) {
  constexpr std::size_t kMostGlyphs = 2000;  // no screen is wider
  const std::string ended(text.substr(0, kMostGlyphs * 4));
  const char* at = ended.c_str();
  while (*at != '\0' && glyphs_.size() < kMostGlyphs) {
    const char* const start = at;
    const char32_t code = utf8::next(at);
    if (code >= utf8::kStray || code < 0x20 || (code >= 0x7F && code < 0xA0)) {
      const std::string shown = escape(code);
      glyphs_.push_back({shown, static_cast<int>(shown.size())});
    } else {
      glyphs_.push_back({std::string(start, at), in(kNoWidth, code) ? 0 : in(kTwoWide, code) ? 2 : 1});
    }
    width_ += glyphs_.back().width;
  }
  if (*at == '\0') return;
  glyphs_.push_back({"…", 1});
  ++width_;
}

std::string Cell::fit(int columns) const {
  const int room = width_ <= columns ? columns : columns - 1;
  std::string kept;
  int used = 0;
  for (auto at = glyphs_.begin(); at != glyphs_.end() && (used += at->width) <= room; ++at) kept += at->text;
  return width_ <= columns ? kept : kept + "…";
}

std::string Cell::fit_end(int columns) const {
  const int room = width_ <= columns ? columns : columns - 1;
  std::string kept;
  int used = 0;
  for (auto at = glyphs_.rbegin(); at != glyphs_.rend() && (used += at->width) <= room; ++at) {
    kept.insert(0, at->text);
  }
  return width_ <= columns ? kept : "…" + kept;
}

std::string shown(const std::optional<std::string>& value) {
  if (!value) return "(none)";
  return value->empty() ? "(empty)" : *value;
}

std::string one_line(std::string_view text) {
  const Cell cell(text);
  return cell.fit(cell.width());
}

std::string pad(std::string text, int columns) {
  const int missing = columns - Cell(text).width();
  if (missing > 0) text.append(static_cast<std::size_t>(missing), ' ');
  return text;
}

std::string counted(int count, const char* one, const char* more) {
  return std::to_string(count) + ' ' + (count == 1 ? one : more);
}

std::string first_of(const std::vector<std::string>& texts) {
  constexpr std::size_t kExamples = 4;
  std::string text;
  for (std::size_t i = 0; i < texts.size() && i <= kExamples; ++i)
    text += (i == 0 ? "" : ", ") + (i < kExamples ? texts[i] : "…");
  return text;
}
