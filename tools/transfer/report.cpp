#include "report.h"

#include <algorithm>

#include "columns.h"
#include "terminal.h"

namespace {

constexpr int kOtherLines = 12;  // lines of the report that list no change
constexpr std::size_t kIdsShown = 4;

/// One line of the report: a heading of one word, and a text.
void line(std::ostream& out, const char* word, const std::string& text) {
  out << pad(word, 10) << one_line(text) << '\n';
}

/// A composed ID shows its two halves.
std::string id_text(int id) {
  const unsigned bits = static_cast<unsigned>(id);
  if (bits < 0x10000U) return std::to_string(id);
  return std::to_string(bits & 0xFFFFU) + " (repeat " + std::to_string(bits >> 16U) + ')';
}

void print_homeless(std::ostream& out, const std::vector<int>& ids) {
  if (ids.empty()) return;
  std::string text = counted(static_cast<int>(ids.size()), "ID", "IDs") + ": ";
  for (std::size_t i = 0; i < std::min(ids.size(), kIdsShown); ++i)
    text += (i == 0 ? "" : ", ") + id_text(ids[i]);
  line(out, "no node", ids.size() > kIdsShown ? text + ", …" : text);
}

void print_changes(std::ostream& out, const Outcome& outcome, int columns) {
  constexpr int kGap = 2;
  std::vector<Change> rows = {{"node", "old value", "new value"}};
  rows.insert(rows.end(), outcome.changes.begin(), outcome.changes.end());
  const int most = std::max(columns / 4, 9);
  int path_width = 0;
  int old_width = 0;
  int new_width = 0;
  for (Change& row : rows) {
    row.old_value = Cell(row.old_value).fit(most);
    row.new_value = Cell(row.new_value).fit(most);
    path_width = std::max(path_width, Cell(row.path).width());
    old_width = std::max(old_width, Cell(row.old_value).width());
    new_width = std::max(new_width, Cell(row.new_value).width());
  }
  path_width = std::min(path_width, std::max(columns - 3 * kGap - old_width - new_width, 12));
  for (const Change& row : rows) {
    out << "  " << pad(Cell(row.path).fit_end(path_width), path_width + kGap)
        << pad(row.old_value, old_width + kGap) << row.new_value << '\n';
  }
  const int total = outcome.changed_nodes + outcome.changed_attributes;
  const int more = total - static_cast<int>(outcome.changes.size());
  if (more > 0) out << "  … and " << more << " more\n";
}

}  // namespace

Screen Screen::of_standard_output() {
  Screen screen;
  const Terminal terminal = Terminal::of_standard_output();
  if (terminal.columns > 0) screen.columns = terminal.columns;
  if (terminal.lines > 0) screen.change_limit = std::max(terminal.lines - kOtherLines, 5);
  return screen;
}

void print_report(std::ostream& out, const Arguments& arguments, const Outcome& outcome,
                  const Screen& screen) {
  line(out, "source",
       arguments.source + ": " + counted(outcome.source_nodes, "node", "nodes") + ", " +
           counted(outcome.harvested, "value", "values") + " harvested");
  line(out, "target",
       arguments.target + ": " + counted(outcome.target_nodes, "node", "nodes") + ", " +
           std::to_string(outcome.matched) + " matched");
  if (!outcome.warning.empty()) line(out, "warning", outcome.warning);
  if (outcome.repeated > 0) {
    line(out, "warning",
         counted(outcome.repeated, "value", "values") +
             " left out: the ID stood before in the source, and the first one is used");
  }
  print_homeless(out, outcome.homeless);
  line(out, "changed",
       counted(outcome.changed_nodes, "node", "nodes") + " (marked with OldValue), " +
           counted(outcome.changed_attributes, "attribute", "attributes"));
  if (!outcome.changes.empty()) print_changes(out, outcome, screen.columns);
  line(out, "theme",
       arguments.theme + ": " + counted(outcome.harvested, "value", "values") + ", read back and equal");
  line(out, "result", arguments.result);
}
