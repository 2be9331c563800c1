// The report that the program prints.
#pragma once

#include <ostream>

#include "transfer.h"

/// The room that the report has.
struct Screen {
  int columns = 100;
  int change_limit = 20;

  /// The size of the terminal to which standard output goes, if there is one.
  static Screen of_standard_output();
};

void print_report(std::ostream& out, const Arguments& arguments, const Outcome& outcome,
                  const Screen& screen);
