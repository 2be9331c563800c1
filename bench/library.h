// The libraries that take part, and their jobs.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct Job {
  std::string name;
  bool per_call;  // one call on a small tree, not a pass over all nodes
  std::function<void(benchmark::State&)> run;
  int most_nodes = std::numeric_limits<int>::max();  // larger trees are left out
};

struct Library {
  std::string name;
  std::vector<Job> jobs;
};

/// All libraries of the program, by their column in the tables.
inline std::map<int, Library>& libraries() {
  static std::map<int, Library> all;
  return all;
}

/// `const Enrol enrolled(COLUMN, LIBRARY);` in the file of each library.
struct Enrol {
  Enrol(int column, Library library) { libraries().emplace(column, std::move(library)); }
};
