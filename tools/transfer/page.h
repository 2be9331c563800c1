// The page that --report writes to a file with the ending .html.
#pragma once

#include <string>

#include "transfer.h"

/// One page that needs nothing else: counts, what did not fit, and the result as a tree that folds, with the old
/// and the new value of what changed. It can be searched.
std::string page_text(const Arguments& arguments, const Outcome& outcome);
