#include "held_signals.h"

#include <unistd.h>

#include <cerrno>
#include <string_view>

#include "failure.h"

namespace {

constexpr std::array kEnding = {SIGINT, SIGTERM, SIGHUP};

// What the handler does, which is set while the signals wait.
struct {
  std::array<const char*, 2> files{};
  bool all_is_written = false;
  int status = 0;
} ending;

void tell(std::string_view text) {
  if (write(STDERR_FILENO, text.data(), text.size()) < 0) return;  // nobody is left to be told
}

void end(int signal) {
  for (const char* const file : ending.files) {
    if (file != nullptr) unlink(file);
  }
  if (ending.all_is_written) {
    if (signal != SIGPIPE) {
      tell(program_invocation_short_name);
      tell(": interrupted after all was written\n");
    }
    _exit(ending.status);
  }
  std::signal(signal, SIG_DFL);
  raise(signal);  // when this handler is left
}

bool is_ignored(int signal) {
  struct sigaction action {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

HeldSignals::HeldSignals() {
  sigemptyset(&held_);
  for (const int signal : kEnding) {
    if (!is_ignored(signal)) sigaddset(&held_, signal);  // one that is ignored is nothing to wait for
  }
  sigprocmask(SIG_BLOCK, &held_, &former_);
}

HeldSignals::~HeldSignals() { sigprocmask(SIG_SETMASK, &former_, nullptr); }

void HeldSignals::check() const {
  sigset_t waiting;
  sigpending(&waiting);
  for (const int signal : kEnding) {
    if (sigismember(&held_, signal) == 1 && sigismember(&waiting, signal) == 1) throw Failure("interrupted");
  }
}

void HeldSignals::let_through(const std::array<const char*, 2>& files) {
  ending.files = files;
  set_handlers();
  sigprocmask(SIG_SETMASK, &former_, nullptr);
}

void HeldSignals::hold_again() const { sigprocmask(SIG_BLOCK, &held_, nullptr); }

void HeldSignals::all_is_written(int status) {
  ending = {.all_is_written = true, .status = status};
  set_handlers();
}

void HeldSignals::set_handlers() const {
  struct sigaction action {};
  action.sa_handler = end;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
    if (!is_ignored(signal)) sigaction(signal, &action, nullptr);
  }
}
