#include "listing.h"

#include <algorithm>
#include <utility>

#include "columns.h"
#include "nodes.h"

namespace {

constexpr int kGap = 2;
constexpr std::array kColours = {"\033[2m", "\033[2m", "\033[1m", "\033[36m", "\033[32m"};
constexpr const char* kNoColour = "\033[0m";

}  // namespace

/// A text in at most the width of the terminal divided by `part`.
Listing::Text Listing::fitted(const std::string& text, int part) const {
  const Cell cell(text);
  const int room = terminal_.columns > 0 ? terminal_.columns / part : cell.width();
  Text fitted{cell.fit(room), cell.width()};
  if (fitted.width > room) fitted.width = Cell(fitted.shown).width();
  return fitted;
}

void Listing::add_heading(int rows) {
  widths_[kRow] = static_cast<int>(std::to_string(rows).size());
  keep({Text{"row", 3}, {"level", 5}, {"node", 4}, {"label", 5}, {"value", 5}});
}

void Listing::add(RYXmlWrapperBase& node, int row, int level) {
  const int most = terminal_.columns > 0 ? terminal_.columns / 4 : 2 * level;
  const int indent = std::min(2 * level, most);
  Text name = fitted(rytree::tag_of(node), 4);
  name.shown.insert(0, static_cast<std::size_t>(indent), ' ');
  name.width += indent;
  add_line(node, row, std::to_string(level), std::move(name));
}

void Listing::add(RYXmlWrapperBase& node, int row, const CString& path) {
  add_line(node, row, "", fitted(path.GetString(), 2));
}

void Listing::add_line(RYXmlWrapperBase& node, int row, const std::string& level, Text name) {
  const CString label = rytree_get_node_label(&node, /*useLabel=*/true);
  const bool own_label = label != rytree::tag_of(node).c_str();
  keep({fitted(std::to_string(row), 1), fitted(level, 1), std::move(name),
        fitted(own_label ? label.GetString() : "", 4), fitted(rytree::text_of(node), 1)});
}

void Listing::keep(Line line) {
  constexpr std::size_t kBlock = 500;
  is_empty_ = false;
  for (std::size_t i = 0; i < kColumns; ++i) widths_[i] = std::max(widths_[i], line[i].width);
  lines_.push_back(std::move(line));
  if (lines_.size() == kBlock) finish();
}

void Listing::finish() {
  std::string text;
  for (const Line& line : lines_) write(text, line);
  lines_.clear();
  out_ << text << std::flush;
}

void Listing::write(std::string& out, const Line& line) const {
  int start = 0;    // of the column
  int written = 0;  // columns of this line so far
  for (std::size_t i = 0; i < kColumns; ++i) {
    Text cell = line[i];
    if (i == kValue && terminal_.columns > 0) cell.shown = Cell(cell.shown).fit(terminal_.columns - start);
    if (!cell.shown.empty()) {
      const int place = i <= kLevel ? start + widths_[i] - cell.width : start;  // numbers to the right
      out.append(static_cast<std::size_t>(place - written), ' ');
      out += terminal_.colour ? kColours[i] + cell.shown + kNoColour : cell.shown;
      written = place + cell.width;
    }
    if (widths_[i] > 0) start += widths_[i] + kGap;
  }
  out += '\n';
}
