// What the program writes.
#include <optional>
#include <utility>

#include "failure.h"
#include "held_signals.h"
#include "page.h"
#include "report_file.h"
#include "staged_file.h"
#include "streams.h"
#include "transfer.h"

namespace {

/// Writes the theme to the staged file and reads it back.
void write_theme(const Arguments& arguments, const StagedFile& file, const Outcome& outcome) {
  Pairs pairs = outcome.pairs;
  CStringArray labels;
  if (outcome.ids.are_words()) {
    for (const int id : pairs.ids) labels.Add(outcome.ids.text(id).c_str());
  }
  const std::string comment = "Values of " + shown_input(arguments.source);
  const bool written = vctree_save_values_with_ids(file.path(), &pairs.ids, &pairs.values, comment.c_str(),
                                                   outcome.ids.are_words() ? &labels : nullptr);
  if (!written) throw file_failure(arguments.theme);
  Pairs back;
  CString comment_back;
  if (!vctree_read_values_with_ids(file.path(), &back.ids, &back.values, &comment_back))
    throw file_failure(arguments.theme);
  if (VCTreeIsSame(&pairs.ids, &back.ids) == 0 ||
      VCTreeGetChanged(&pairs.values, &back.values, /*caseSensitive=*/true) != -1 ||
      comment_back != comment.c_str())
    throw Failure(arguments.theme + ": the theme does not read back as it was written");
}

bool is_page(const std::string& file) { return file.ends_with(".html") || file.ends_with(".htm"); }

}  // namespace

void write_files(const Arguments& arguments, const Outcome& outcome, Progress& progress) {
  progress.stage("writing");
  const bool fits = outcome.misfit.empty() && !arguments.dry_run;
  std::optional<HeldSignals> signals(std::in_place);  // outlives the files, which a failure removes
  std::optional<StagedFile> theme;
  std::optional<StagedFile> report;
  std::optional<StagedFile> result;
  if (!arguments.report.empty())
    report.emplace(arguments.report)
        .write(is_page(arguments.report) ? page_text(arguments, outcome) : report_text(outcome));
  const bool carries = outcome.pairs.ids.GetSize() > 0;  // a theme is never empty
  if (fits && carries && !arguments.theme.empty())
    write_theme(arguments, theme.emplace(arguments.theme), outcome);
  signals->check();
  if (fits && is_stream(arguments.result)) {
    result.emplace(arguments.result);
    if (outcome.result.Save(result->path()) == 0) throw file_failure(shown_name(arguments.result));
  } else if (fits && outcome.result.Save(arguments.result.c_str()) == 0) {
    throw file_failure(arguments.result);
  }
  const auto files = {&theme, &report, &result};
  for (auto* const file : files) {
    if (*file) (*file)->commit();
  }
  signals.reset();
  progress.clear();  // a reader of what is sent may be the same terminal
  if (result) result->send();
  try {
    if (theme) theme->send();
    if (report) report->send();
  } catch (const Failure& failure) {
    throw Unprinted(failure.what());
  }
}
