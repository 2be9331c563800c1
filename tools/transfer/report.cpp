#include "report.h"

#include <algorithm>

#include "columns.h"
#include "streams.h"
#include "table.h"
#include "terminal.h"

namespace {

constexpr int kOtherLines = 15;  // lines of the summary that list no change

/// One line of the summary: a heading of one word, and a text.
void line(std::ostream& out, const char* word, const std::string& text) {
  out << pad(word, 10) << one_line(text) << '\n';
}

class Summary {
 public:
  Summary(std::ostream& out, const Outcome& outcome, const Screen& screen)
      : out_(out), outcome_(outcome), screen_(screen) {}

  /// Lists the changes, or the first of them.
  void changes() const {
    std::vector<Row> rows = {{"node", "ID", "old value", "new value", ""}};
    add_rows(Fate::kApplied, rows);
    if (rows.size() > 1) print_rows(out_, std::move(rows), screen_.columns, /*path=*/0);
    const int more = outcome_.findings.count(Fate::kApplied) - screen_.change_limit;
    if (more > 0) out_ << "  … and " << more << " more\n";
  }

  /// Tells how many findings of the fate there are, and lists them or tells the IDs of some.
  void others(Fate fate, const char* word, const std::string& what) const {
    if (outcome_.findings.count(fate) == 0) return;
    line(out_, word, screen_.whole ? what : what + ": " + outcome_.findings.examples(fate));
    if (!screen_.whole) return;
    std::vector<Row> rows;
    add_rows(fate, rows);
    print_rows(out_, std::move(rows), screen_.columns, /*path=*/0);
  }

 private:
  void add_rows(Fate fate, std::vector<Row>& rows) const {
    const bool changes = fate == Fate::kApplied;
    int room = changes ? screen_.change_limit : std::numeric_limits<int>::max();
    for (const Finding& finding : outcome_.findings.list) {
      if (finding.fate != fate) continue;
      if (--room < 0) return;
      const bool both = changes || fate == Fate::kKept || fate == Fate::kConflict || fate == Fate::kNotTaken;
      const auto& value = finding.new_value ? finding.new_value : finding.old_value;
      rows.push_back({finding.path, finding.id, both ? shown(finding.old_value) : shown(value),
                      both ? shown(finding.new_value) : "", finding.note});
    }
  }

  std::ostream& out_;
  const Outcome& outcome_;
  const Screen& screen_;
};

std::string theme_text(const Arguments& arguments, const Outcome& outcome) {
  std::string text = written(arguments, outcome, arguments.theme);
  const int values = outcome.pairs.ids.GetSize();
  if (arguments.dry_run || !outcome.misfit.empty()) return text;
  if (values == 0) return "not written, as no value is carried";
  return text + ": " + counted(values, "value", "values") + ", read back and equal";
}

}  // namespace

Screen Screen::of_standard_output(bool all) {
  Screen screen;
  const Terminal terminal = Terminal::of_standard_output();
  if (all || terminal.columns == 0) return screen;
  screen.whole = false;
  screen.columns = terminal.columns;
  screen.change_limit = terminal.lines > 0 ? std::max(terminal.lines - kOtherLines, 5) : 20;
  return screen;
}

std::string written(const Arguments& arguments, const Outcome& outcome, const std::string& file) {
  if (arguments.dry_run) return "not written (--dry-run)";
  return outcome.misfit.empty() ? shown_name(file) : "not written";
}

void print_report(std::ostream& out, const Arguments& arguments, const Outcome& outcome,
                  const Screen& screen) {
  const Findings& found = outcome.findings;
  const Summary summary(out, outcome, screen);
  line(out, "source",
       shown_input(arguments.source) + ": " + counted(outcome.source_nodes, "node", "nodes") + ", " +
           counted(outcome.harvested, "value", "values") + " harvested");
  line(out, "target",
       shown_input(arguments.target) + ": " + counted(found.target_nodes, "node", "nodes") + ", " +
           std::to_string(found.matched_nodes) + " of them with a value in the source");
  if (!found.shared_ids.empty()) {
    line(out, "warning",
         counted(static_cast<int>(found.shared_ids.size()), "ID is that", "IDs are those") +
             " of several nodes, which all get its value: " + first_of(found.shared_ids));
  }
  line(out, "changed",
       counted(found.changed_texts, "text", "texts") +
           (arguments.no_marks ? ", " : " (marked with OldValue), ") +
           counted(found.changed_attributes, "attribute", "attributes") +
           (arguments.no_marks ? "" : " (never marked)"));
  summary.changes();
  summary.others(Fate::kConflict, "conflict",
                 counted(found.count(Fate::kConflict), "value", "values") + " changed by both sides, " +
                     (arguments.prefer == "new" ? "the new one" : "mine") + " taken");
  summary.others(Fate::kDefault, "default",
                 counted(found.count(Fate::kDefault), "value", "values") + " still as in " +
                     shown_input(arguments.base) + ", not carried; shown as the target has them");
  summary.others(Fate::kKept, "kept",
                 counted(found.count(Fate::kKept), "value", "values") + " of the target, by its theme rules");
  summary.others(Fate::kNoNode, "no node",
                 counted(found.count(Fate::kNoNode), "ID", "IDs") + " of the source");
  summary.others(Fate::kNoValue, "no value",
                 counted(found.count(Fate::kNoValue), "node", "nodes") + " of the target with an ID");
  summary.others(
      Fate::kDuplicate, "duplicate",
      counted(found.count(Fate::kDuplicate), "value", "values") + " left out, as the ID came before");
  summary.others(Fate::kNotTaken, "not taken",
                 counted(found.count(Fate::kNotTaken), "text", "texts") + " of " +
                     shown_input(arguments.source) + " beside children, or without effect");
  summary.others(Fate::kNoId, "no ID",
                 counted(found.count(Fate::kNoId), "value", "values") + " of " +
                     shown_input(arguments.source) + " without an ID in " + outcome.ids.shown_attribute() +
                     ", not carried");
  summary.others(Fate::kBadId, "bad ID",
                 counted(found.count(Fate::kBadId), "ID", "IDs") + " of no use in " +
                     first_of(found.files_with_bad_ids));
  if (!arguments.theme.empty()) line(out, "theme", theme_text(arguments, outcome));
  line(out, "result", written(arguments, outcome, arguments.result));
  if (!arguments.report.empty()) line(out, "report", shown_name(arguments.report));
}
