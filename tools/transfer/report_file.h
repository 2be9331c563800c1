// The lines that --report writes.
#pragma once

#include <string>

#include "transfer.h"

/// A heading, then a line with tabs for each finding. A backslash, a tab and the ends of lines in a text are
/// written as \\, \t, \n and \r.
std::string report_text(const Outcome& outcome);
