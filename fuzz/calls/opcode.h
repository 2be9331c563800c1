// Calls as data: every export and every public operation of the node class by its number. The table is generated from
// the headers; hints.txt says what makes each call succeed.
#pragma once

#include <climits>
#include <cstddef>
#include <vector>

namespace calls {

class Call;

/// A tree that calls can be given.
struct Shape {
  const char* name;
  const char* xml;
};

/// The least result of a call that has none: it succeeds if it changes something.
inline constexpr int kChange = INT_MIN;

/// One way to make a call that succeeds.
struct Way {
  int least;                        // result of a success, or kChange
  int page;                         // to be set before; 0: as it is
  int most;                         // no number that a program chooses is larger
  std::vector<const char*> values;  // of the arguments, in the forms that hints.txt describes
};

struct Opcode {
  const char* name;
  std::vector<Way> ways;
  void (*make)(Call&);
};

const std::vector<Opcode>& opcodes();  // the exports first
std::size_t export_count();
const std::vector<Shape>& shapes();
const std::vector<const char*>& words();  // tags, attribute names, values: all that is in the hints
const std::vector<int>& numbers();        // likewise

}  // namespace calls
