// Prints nodes in aligned columns, for a terminal or for a pipe.
#pragma once

#include <rytree_Utils.h>

#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "terminal.h"

class Listing {
 public:
  /// On a terminal, texts are cut so that a line fits its width; elsewhere they stay whole.
  Listing(std::ostream& out, const Terminal& terminal) : out_(out), terminal_(terminal) {}

  /// A heading, and room for row numbers up to `rows`.
  void add_heading(int rows);
  /// Adds a node with its level and its tag, indented by the level.
  void add(RYXmlWrapperBase& node, int row, int level);
  /// Adds a node with its path and without a level.
  void add(RYXmlWrapperBase& node, int row, const CString& path);

  /// Prints what is left. Lines are printed as they come, some hundred at a time, and a longer text widens its
  /// column from there on.
  void finish();
  bool is_empty() const { return is_empty_; }

 private:
  enum Column : std::size_t { kRow, kLevel, kNode, kLabel, kValue, kColumns };
  struct Text {
    std::string shown;
    int width = 0;
  };
  using Line = std::array<Text, kColumns>;

  Text fitted(const std::string& text, int part) const;
  void add_line(RYXmlWrapperBase& node, int row, const std::string& level, Text name);
  void keep(Line line);
  void write(std::string& out, const Line& line) const;

  std::ostream& out_;
  Terminal terminal_;
  bool is_empty_ = true;
  std::array<int, kColumns> widths_{};
  std::vector<Line> lines_;
};
