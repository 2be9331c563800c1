// Texts in columns of a terminal.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A text made ready for one line: control characters and bytes that are no UTF-8 stand as escapes.
class Cell {
 public:
  explicit Cell(std::string_view text);

  int width() const { return width_; }
  /// The text in at most that many columns; "…" stands for what was cut off the end, or the front.
  std::string fit(int columns, bool cut_front = false) const;

 private:
  struct Glyph {
    std::string text;
    int width;
  };
  std::vector<Glyph> glyphs_;
  int width_ = 0;
};

/// `text` with escapes as in a Cell.
std::string one_line(std::string_view text);

/// `text` with blanks up to so many columns.
std::string pad(std::string text, int columns);

/// "1 node", "2 nodes".
std::string counted(int count, const char* one, const char* more);
