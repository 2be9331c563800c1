// Nodes in aligned columns, for a terminal or for a pipe.
#pragma once

#include <rytree_Utils.h>

#include <array>
#include <string>
#include <vector>

#include "terminal.h"

class Listing {
 public:
  /// On a terminal, texts are cut so that a line fits its width; elsewhere they stay whole.
  explicit Listing(const Terminal& terminal) : terminal_(terminal) {}

  void add_heading();
  /// Adds a node with its level and its tag, indented by the level.
  void add(RYXmlWrapperBase& node, int row, int level);
  /// Adds a node with its path and without a level.
  void add(RYXmlWrapperBase& node, int row, const CString& path);

  /// All lines added so far, without blanks at their ends.
  std::string text() const;

 private:
  enum Column : std::size_t { kRow, kLevel, kNode, kLabel, kValue, kColumns };
  struct Text {
    std::string shown;
    int width = 0;
  };
  using Line = std::array<Text, kColumns>;

  Text fitted(const std::string& text, int part) const;
  void add_line(RYXmlWrapperBase& node, int row, const std::string& level, Text name);
  void write(std::string& out, const Line& line, const std::array<int, kColumns>& widths) const;

  Terminal terminal_;
  std::vector<Line> lines_;
};
