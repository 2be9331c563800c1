// What the program writes.
#include <optional>
#include <utility>

#include "failure.h"
#include "page.h"
#include "platform/signals.h"
#include "report_file.h"
#include "staged_file.h"
#include "streams.h"
#include "transfer.h"

namespace {

/// Writes the theme to the staged file and reads it back.
void write_theme(const Arguments& arguments, StagedFile& file, const Outcome& outcome) {
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
  file.take();
}

bool is_page(const std::string& file) {
  const CString ending = CString(file.substr(file.rfind('.') + 1).c_str());
  return _mbsicmp(ending, "html") == 0 || _mbsicmp(ending, "htm") == 0;
}

/// Sends RESULT and THEME as far as they are streams. It comes before all that changes a file, so that files stay as
/// they were if it fails, and may wait for a reader for long, so signals end the program meanwhile.
void send_streams(platform::HeldSignals& signals, std::optional<StagedFile>& result,
                  std::optional<StagedFile>& theme, const std::optional<StagedFile>& report) {
  const bool theme_is_sent = theme && theme->is_stream();
  if (!result && !theme_is_sent) return;
  signals.LetThrough({theme ? theme->unfinished() : "", report ? report->unfinished() : ""});
  if (result) result->send();
  if (theme_is_sent) theme->send();
  signals.HoldAgain();
}

}  // namespace

void write_files(const Arguments& arguments, const Outcome& outcome, Progress& progress) {
  progress.stage("writing");
  const bool fits = outcome.misfit.empty() && !arguments.dry_run;
  std::optional<platform::HeldSignals> signals(std::in_place);  // outlives the files, which a failure removes
  std::optional<StagedFile> theme;
  std::optional<StagedFile> report;
  std::optional<StagedFile> result;
  if (!arguments.report.empty())
    report.emplace(arguments.report)
        .write(is_page(arguments.report) ? page_text(arguments, outcome) : report_text(outcome));
  const bool carries = outcome.pairs.ids.GetSize() > 0;  // a theme is never empty
  // If the folder of RESULT takes no file, the failure is to name RESULT, and not the THEME beside it.
  if (fits && !is_stream(arguments.result)) StagedFile(arguments.result).write("");
  if (fits && carries && !arguments.theme.empty())
    write_theme(arguments, theme.emplace(arguments.theme), outcome);
  if (signals->IsOneWaiting()) throw Failure("interrupted");
  if (fits && is_stream(arguments.result)) {
    result.emplace(arguments.result);
    if (outcome.result.Save(result->path()) == 0) throw file_failure(shown_name(arguments.result));
    result->take();
  }
  progress.clear();  // a reader of what is sent may be the same terminal
  send_streams(*signals, result, theme, report);
  if (fits && !result && outcome.result.Save(arguments.result.c_str()) == 0)
    throw file_failure(arguments.result);
  if (theme) theme->commit();
  if (report) report->commit();
  if (outcome.misfit.empty() && arguments.writes())
    signals->AllIsWritten(/*status=*/1);  // as where the summary cannot be printed
  signals.reset();
  try {
    if (report) report->send();
  } catch (const Failure& failure) {
    throw Unprinted(failure.what());
  }
}
