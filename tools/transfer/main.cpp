// Carries the settings of one tree over to another version of it.
#include <unistd.h>

#include <exception>
#include <iostream>

#include "columns.h"
#include "failure.h"
#include "report.h"
#include "version.h"

namespace {

/// Shows on a terminal what is being done, and clears the line in the end. Shows nothing elsewhere.
class Progress {
 public:
  Progress() = default;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { clear(); }

  void stage(const char* name) const {
    clear();
    if (terminal_) std::cerr << "rytree-transfer: " << name << " …" << std::flush;
  }

 private:
  void clear() const {
    if (terminal_) std::cerr << "\r\033[K" << std::flush;
  }

  bool terminal_ = isatty(STDERR_FILENO) != 0;
};

Outcome watched_transfer(const Arguments& arguments, int change_limit) {
  const Progress progress;
  return transfer(arguments, change_limit, [&](const char* name) { progress.stage(name); });
}

void run(const Arguments& arguments) {
  const Screen screen = Screen::of_standard_output();
  const Outcome outcome = watched_transfer(arguments, screen.change_limit);
  for (const std::string& loss : outcome.losses) std::cerr << "rytree-transfer: " << one_line(loss) << '\n';
  print_report(std::cout, arguments, outcome, screen);
}

}  // namespace

int main(int count, char** words) {
  try {
    const Arguments arguments = read_arguments(count, words);
    if (arguments.help) {
      std::cout << kHelp;
    } else if (arguments.version) {
      std::cout << version_text("rytree-transfer");
    } else {
      run(arguments);
    }
    if (std::cout.flush()) return 0;
    std::cerr << "rytree-transfer: cannot write to standard output\n";
    return 1;
  } catch (const std::exception& failure) {
    std::cerr << "rytree-transfer: " << one_line(failure.what()) << '\n';
    return 2;
  }
}
