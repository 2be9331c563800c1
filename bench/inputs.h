// What the jobs work on, made once for each number of nodes.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "file_forms.h"

/// What `make` gives for a number of nodes: made at the first call, kept for the next ones.
template <class Made>
const Made& made_once(int nodes, Made (*make)(int)) {
  static std::map<int, Made> all;
  auto found = all.find(nodes);
  if (found == all.end()) found = all.emplace(nodes, make(nodes)).first;
  return found->second;
}

struct Input {
  int nodes;
  std::string tree_path;            // the tree of make_tree in a file
  std::string other_path;           // the same tree, its leaves with the values below
  std::string flat_path;            // the tree of make_flat_tree in a file
  std::vector<int> ids;             // of all leaves, shuffled
  std::vector<std::string> values;  // the value to apply to each of these leaves
  int last_id;                      // of the last node of the tree
};

/// The files are in memory where the machine has a place for that. They are removed when the program ends.
const Input& input(int nodes);

/// The tree in a file of that form.
const std::string& form_path(int nodes, FileForm form);

/// Where a job may write a file.
std::string scratch_path();
