// What the jobs work on, made once for each number of nodes.
#pragma once

#include <map>
#include <string>
#include <vector>

/// What `make` gives for a number of nodes, kept for the next who asks.
template <class Made>
const Made& made_once(int nodes, Made (*make)(int)) {
  static std::map<int, Made> all;
  auto found = all.find(nodes);
  if (found == all.end()) found = all.emplace(nodes, make(nodes)).first;
  return found->second;
}

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
