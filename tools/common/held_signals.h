// Signals that ask a program to end, put off until its files are in order.
#pragma once

#include <array>
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
  /// Lets them through, and SIGPIPE: the program dies of one at once, and these files are removed first. A null
  /// is passed over.
  void let_through(const std::array<const char*, 2>& files);
  /// Lets them wait again.
  void hold_again() const;
  /// All is written: from the end of this object on, a signal ends the program with that status.
  void all_is_written(int status);

 private:
  void set_handlers() const;

  sigset_t held_;
  sigset_t former_;
};
