// Signals that ask a program to end, put off until its files are in order.
#pragma once

#include <array>
#include <memory>
#include <string>

namespace platform {

// While it lives, requests to end the program wait. In the end the program dies of one that came meanwhile.
class HeldSignals {
 public:
  HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;
  ~HeldSignals();

  bool IsOneWaiting() const;
  // Lets them through, and the end of a stream's reader: the program dies of one at once, and these files are
  // removed first. An empty name is passed over.
  void LetThrough(const std::array<std::string, 2>& files);
  // Lets them wait again.
  void HoldAgain();
  // All is written: from the end of this object on, a signal ends the program with that status.
  void AllIsWritten(int status);

 private:
  class Work;
  std::unique_ptr<Work> work_;
};

}  // namespace platform
