// Carries the settings of one tree over to another version of it.
#include <exception>
#include <iostream>

#include "columns.h"
#include "failure.h"
#include "platform/program.h"
#include "report.h"
#include "version.h"

namespace {

constexpr const char* kProgram = "rytree-transfer";

void tell(const std::string& text) { std::cerr << kProgram << ": " << one_line(text) << '\n'; }

/// The status where only the printing failed.
int unprinted(const Arguments& arguments) { return arguments.writes() ? 1 : 2; }

/// Does the job and gives the exit status.
int run(const Arguments& arguments) {
  const int stages = arguments.base.empty() ? 6 : 7;
  Outcome outcome;
  Arguments done = arguments;
  int status = 0;
  try {
    Progress progress(kProgram, stages);
    outcome = transfer(arguments, progress);
    write_files(arguments, outcome, progress);
  } catch (const Unprinted& failure) {
    tell(failure.what());
    status = unprinted(arguments);
    done.report.clear();
  }
  if (outcome.misfit.empty()) {
    for (const std::string& loss : outcome.losses) tell(loss);
  }
  print_report(arguments.prints_output() ? std::cerr : std::cout, done, outcome,
               Screen::of_standard_output(arguments.all));
  if (outcome.misfit.empty()) return status;
  std::cout.flush();
  tell(outcome.misfit);
  return 3;
}

}  // namespace

int main(int count, char** words) {
  try {
    const Arguments arguments = read_arguments(platform::Started(count, words));
    int status = 0;
    if (arguments.help) {
      std::cout << kHelp;
    } else if (arguments.version) {
      std::cout << version_text(kProgram);
    } else {
      status = run(arguments);
    }
    if (std::cout.flush()) return status;
    tell("cannot write to standard output");
    return status == 0 ? unprinted(arguments) : status;
  } catch (const std::exception& failure) {
    tell(failure.what());
    return 2;
  }
}
