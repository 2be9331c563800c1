// The commands of the program, and the help on them.
#pragma once

#include <string>

#include "arguments.h"
#include "document.h"

/// What a command has left to print, whether it changed the tree, and the exit status.
struct Outcome {
  std::string text{};
  bool changed = false;
  int status = 0;
};

struct Command {
  const char* name;
  const char* usage;  // printed, and read by the parser of the command line
  const char* help;   // what it does in one line, then the rest
  bool writes;        // takes -o, --in-place and --allow-loss
  Outcome (*run)(Document& document, const Arguments& arguments);
};

/// Null if there is none of that name.
const Command* find_command(const std::string& name);

/// What comes after the name of the command on the command line.
std::string usage(const Command& command);

std::string help(const Command& command);
std::string help();

// Looking.
Outcome show(Document& document, const Arguments& arguments);
Outcome path(Document& document, const Arguments& arguments);
Outcome find(Document& document, const Arguments& arguments);

// Comparing.
Outcome diff(Document& document, const Arguments& arguments);

// Thinning.
Outcome filter(Document& document, const Arguments& arguments);
Outcome prune_empty(Document& document, const Arguments& arguments);

// Another order.
Outcome sort(Document& document, const Arguments& arguments);
Outcome move(Document& document, const Arguments& arguments);
Outcome renumber(Document& document, const Arguments& arguments);

// Other contents.
Outcome pairs(Document& document, const Arguments& arguments);
Outcome set(Document& document, const Arguments& arguments);
