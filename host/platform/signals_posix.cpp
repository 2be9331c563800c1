#include "platform/signals.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string_view>

namespace platform {

namespace {

constexpr std::array kEnding = {SIGINT, SIGTERM, SIGHUP};

// What the handler does, which is set while the signals wait.
struct {
  std::array<std::string, 2> files;
  bool all_is_written = false;
  int status = 0;
} ending;

void Tell(std::string_view text) {
  if (write(STDERR_FILENO, text.data(), text.size()) < 0) return;  // nobody is left to be told
}

void End(int signal) {
  for (const std::string& file : ending.files) {
    if (!file.empty()) unlink(file.c_str());
  }
  if (ending.all_is_written) {
    if (signal != SIGPIPE) {
      Tell(program_invocation_short_name);
      Tell(": interrupted after all was written\n");
    }
    _exit(ending.status);
  }
  std::signal(signal, SIG_DFL);
  raise(signal);  // when this handler is left
}

bool IsIgnored(int signal) {
  struct sigaction action {};
  return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

void SetHandlers() {
  struct sigaction action {};
  action.sa_handler = End;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
    if (!IsIgnored(signal)) sigaction(signal, &action, nullptr);
  }
}

}  // namespace

class HeldSignals::Work {
 public:
  sigset_t held;
  sigset_t former;
};

HeldSignals::HeldSignals() : work_(std::make_unique<Work>()) {
  sigemptyset(&work_->held);
  for (const int signal : kEnding) {
    if (!IsIgnored(signal)) sigaddset(&work_->held, signal);  // one that is ignored is nothing to wait for
  }
  sigprocmask(SIG_BLOCK, &work_->held, &work_->former);
}

HeldSignals::~HeldSignals() { sigprocmask(SIG_SETMASK, &work_->former, nullptr); }

bool HeldSignals::IsOneWaiting() const {
  sigset_t waiting;
  sigpending(&waiting);
  for (const int signal : kEnding) {
    if (sigismember(&work_->held, signal) == 1 && sigismember(&waiting, signal) == 1) return true;
  }
  return false;
}

void HeldSignals::LetThrough(const std::array<std::string, 2>& files) {
  ending.files = files;
  SetHandlers();
  sigprocmask(SIG_SETMASK, &work_->former, nullptr);
}

void HeldSignals::HoldAgain() {
  sigprocmask(SIG_BLOCK, &work_->held, nullptr);
  ending.files = {};
}

void HeldSignals::AllIsWritten(int status) {
  ending = {.files = {}, .all_is_written = true, .status = status};
  SetHandlers();
}

}  // namespace platform
