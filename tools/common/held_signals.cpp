#include "held_signals.h"

#include "failure.h"

HeldSignals::HeldSignals() {
  sigemptyset(&held_);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action {};
    // One that is ignored is nothing to wait for.
    if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) sigaddset(&held_, signal);
  }
  sigprocmask(SIG_BLOCK, &held_, &former_);
}

HeldSignals::~HeldSignals() { sigprocmask(SIG_SETMASK, &former_, nullptr); }

void HeldSignals::check() const {
  sigset_t waiting;
  sigpending(&waiting);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    if (sigismember(&held_, signal) == 1 && sigismember(&waiting, signal) == 1) throw Failure("interrupted");
  }
}
