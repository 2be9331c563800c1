#include "table.h"

#include <algorithm>

#include "columns.h"

namespace {

constexpr int kGap = 2;
constexpr int kWidest = 60;  // where nothing is cut, a longer text does not widen its column

}  // namespace

void print_rows(std::ostream& out, std::vector<Row> rows, int columns, std::size_t path) {
  const bool cut = columns > 0;
  std::vector<int> widths(rows.empty() ? 0 : rows.front().size());
  for (Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      const Cell cell(row[i]);
      row[i] = cut && i != path ? cell.fit(std::max(columns / 4, 9)) : one_line(row[i]);
      widths[i] = std::max(widths[i], std::min(Cell(row[i]).width(), cut ? columns : kWidest));
    }
  }
  if (cut && path < widths.size()) {
    int others = kGap;
    for (std::size_t i = 0; i < widths.size(); ++i)
      others += i != path && widths[i] > 0 ? widths[i] + kGap : 0;
    widths[path] = std::min(widths[path], std::max(columns - others, 12));
  }
  for (const Row& row : rows) {
    std::string text = "  ";
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (widths[i] == 0) continue;
      text += pad(cut && i == path ? Cell(row[i]).fit_end(widths[i]) : row[i], widths[i]) +
              std::string(kGap, ' ');
    }
    out << text.substr(0, text.find_last_not_of(' ') + 1) << '\n';
  }
}
