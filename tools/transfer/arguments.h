// The command line.
#pragma once

#include <string>
#include <vector>

struct Arguments {
  std::string source;
  std::string target;
  std::string result;        // empty if nothing is to be written
  std::string theme;         // the same
  std::string report;        // the same
  std::string base;          // the same
  std::string prefer;        // "mine", "new", or empty if not given
  std::string id_attribute;  // empty if not given
  bool all = false;
  bool dry_run = false;
  bool strict = false;
  bool allow_no_match = false;
  bool allow_loss = false;
  bool no_marks = false;
  bool help = false;
  bool version = false;

  /// Whether there is more to do than to print: RESULT is written, or a report to a file.
  bool writes() const;
  /// Whether something other than the summary goes to standard output.
  bool prints_output() const;
};

/// Reads the words of the command line. Throws a Failure if it makes no sense.
Arguments read_arguments(const std::vector<std::string>& words);

extern const char* const kHelp;
