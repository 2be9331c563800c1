// The command line after the name of a command.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

struct Command;

struct Arguments {
  std::vector<std::string> words;                           // what is not an option; FILE comes first
  std::map<std::string, std::vector<std::string>> options;  // the values of each in order; "" for a flag

  bool has(const std::string& option) const { return options.contains(option); }
  /// The last value of an option, `missing` if it was not given.
  std::string text(const std::string& option, const char* missing = "") const;
  /// All values of an option.
  std::vector<std::string> texts(const std::string& option) const;
  /// The number given with an option. Throws a Failure if it is missing or not an int.
  int number(const std::string& option) const;
  /// The index of an option's value among the choices. Throws a Failure if it is none of them.
  int choice(const std::string& option, const std::vector<std::string>& choices, const char* missing) const;
  /// The words from that index on, split at their first "=". Throws a Failure if one has no name before it.
  std::vector<std::pair<std::string, std::string>> assignments(std::size_t first) const;
};

/// Sorts the words into those of the command's usage. Throws a Failure if they do not fit it; with --help any
/// number of words does.
Arguments read_arguments(const Command& command, const std::vector<std::string>& words);

/// The int that the text holds, and nothing else. Throws a Failure if it does not.
int whole_number(const std::string& text);
