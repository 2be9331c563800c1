// The command line.
#pragma once

#include <string>

struct Arguments {
  std::string source;
  std::string target;
  std::string result;
  std::string theme;
  std::string id_attribute;  // empty if not given
  bool allow_loss = false;
  bool help = false;
  bool version = false;

  /// The attribute as the library takes it: null for its default.
  const char* id_attribute_or_null() const { return id_attribute.empty() ? nullptr : id_attribute.c_str(); }
};

/// Reads the command line. Throws a Failure if it makes no sense.
Arguments read_arguments(int count, char** words);

extern const char* const kHelp;
