// Signals that ask a program to end, put off until its files are in order.
#pragma once

#include <csignal>

/// While it lives, SIGINT, SIGTERM and SIGHUP wait. In the end the program dies of one that came meanwhile.
class HeldSignals {
 public:
  HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
  ~HeldSignals();

  /// Throws a Failure if one is waiting.
  void check() const;

 private:
  sigset_t held_;
  sigset_t former_;
};
