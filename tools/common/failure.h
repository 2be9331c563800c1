// The failure that ends a program early.
#pragma once

#include <stdexcept>
#include <string>

/// Carries the one line that a program prints on standard error before it ends with status 2.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Only what tells of the work could not be printed or sent: the program ends with status 1 if something was written.
struct Unprinted : Failure {
  using Failure::Failure;
};

/// The failure of the last load or save: "FILE:LINE:COLUMN: reason" where the place is known, else
/// "FILE: reason".
Failure file_failure(const std::string& file);
