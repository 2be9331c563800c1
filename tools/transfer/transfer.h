// The job of the program: values go from one tree into another and into a theme, and changes are marked.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "arguments.h"

/// One setting that the transfer changed.
struct Change {
  std::string path;  // the tags from the root on, joined by full stops, then "@Name" for an attribute
  std::string old_value;
  std::string new_value;
};

struct Outcome {
  std::vector<std::string> losses;  // what is not kept, a line for each file that RESULT replaces or renews
  int source_nodes = 0;
  int harvested = 0;
  int target_nodes = 0;
  int matched = 0;
  int repeated = 0;           // entries whose ID came earlier in the source
  std::vector<int> homeless;  // IDs of the source without a node in the target
  std::string warning;        // the message of the harvest, or empty
  int changed_nodes = 0;      // marked in the result
  int changed_attributes = 0;
  std::vector<Change> changes;  // the first ones, in document order
};

/// Does the job and writes both files. Calls `stage` with the name of each stage as it begins. Counts all
/// changes and lists at most `change_limit` of them. Throws a Failure, with both files as they were; so they
/// are too after a signal that asks the program to end, unless both are done.
Outcome transfer(const Arguments& arguments, int change_limit, const std::function<void(const char*)>& stage);
