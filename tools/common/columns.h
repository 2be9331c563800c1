// Texts in aligned columns.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A text made ready for one line: control characters and bytes that are not UTF-8 are written as escapes.
class Cell {
 public:
  explicit Cell(std::string_view text);

  int width() const { return width_; }
  /// The text in at most that many columns, with "…" in place of what was cut off its end.
  std::string fit(int columns) const;
  /// The same with what is too long cut off the front.
  std::string fit_end(int columns) const;

 private:
  struct Glyph {
    std::string text;
    int width;
  };
  std::vector<Glyph> glyphs_;
  int width_ = 0;
};

/// A value that may be missing, as a reader can tell it from an empty one: "(none)" or "(empty)".
std::string shown(const std::optional<std::string>& value);

/// `text` with the escapes of a Cell.
std::string one_line(std::string_view text);

/// `text` followed by blanks up to that many columns.
std::string pad(std::string text, int columns);

/// The count and its noun, as in "1 node" and "2 nodes".
std::string counted(int count, const char* one, const char* more);

/// The first of the texts: "3, 5, 8, 9, …".
std::string first_of(const std::vector<std::string>& texts);
