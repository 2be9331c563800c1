// The summary that the program prints.
#pragma once

#include <limits>
#include <ostream>

#include "transfer.h"

/// The room that the summary has.
struct Screen {
  int columns = 0;                                     // 0 for any number: no text is cut
  int change_limit = std::numeric_limits<int>::max();  // so many changes are listed
  bool whole = true;                                   // all other findings are listed, too

  /// The terminal to which standard output goes, unless all is to be shown; any room if there is none.
  static Screen of_standard_output(bool all);
};

/// The name of an output, or why it is not written.
std::string written(const Arguments& arguments, const Outcome& outcome, const std::string& file);

void print_report(std::ostream& out, const Arguments& arguments, const Outcome& outcome,
                  const Screen& screen);
