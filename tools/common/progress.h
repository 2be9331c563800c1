// What a program is doing, told on a terminal.
#pragma once

#include <string>

/// Shows the stage and how many there are, and clears the line in the end. Shows nothing where standard error
/// is not a terminal that can clear a line.
class Progress {
 public:
  Progress(const char* program, int stages);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { clear(); }

  /// Begins the next stage.
  void stage(const std::string& name);
  /// The same for one that reads a file, with its size.
  void reading(const std::string& file);
  void clear() const;

 private:
  const char* program_;
  int stages_;
  int stage_ = 0;
  int columns_;  // 0 if nothing is shown
};
