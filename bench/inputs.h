// What the jobs work on, made once for each number of nodes.
#pragma once

#include <string>
#include <vector>

struct Input {
  int nodes;
  std::string tree_path;  // the tree of make_tree in a file
  std::string flat_path;  // the tree of make_flat_tree in a file
  std::vector<int> ids;   // of all leaves, shuffled, and beside each the value to be applied
  std::vector<std::string> values;
  int last_id;
};

/// Files stand in memory where the machine has a place for that, and go at the end of the program.
const Input& input(int nodes);

/// Where a job may write a file.
std::string scratch_path();
