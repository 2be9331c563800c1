// The job of the program: values from one tree into another, with a theme and change marks.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "arguments.h"

/// One setting that the transfer changed.
struct Change {
  std::string path;  // tags from the root on, joined by full stops; "@Name" behind it for an attribute
  std::string old_value;
  std::string new_value;
};

struct Outcome {
  int source_nodes = 0;
  int harvested = 0;
  int target_nodes = 0;
  int matched = 0;
  int repeated = 0;           // entries whose ID stood before in the source
  std::vector<int> homeless;  // IDs of the source without a node in the target
  std::string warning;        // what the harvest had to say, or empty
  int changed_nodes = 0;      // marked in the result
  int changed_attributes = 0;
  std::vector<Change> changes;  // the first of both, in document order
};

/// Does the job and writes both files. `stage` is told what begins. At most `change_limit` changes are
/// listed, all are counted. Throws a Failure, with both files as they were.
Outcome transfer(const Arguments& arguments, int change_limit, const std::function<void(const char*)>& stage);
