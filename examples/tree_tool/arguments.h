// The command line behind the name of a command.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

struct Command;

struct Arguments {
  std::vector<std::string> words;                           // what is no option, FILE first
  std::map<std::string, std::vector<std::string>> options;  // their values in order; a flag has empty ones

  bool has(const std::string& option) const { return options.contains(option); }
  /// The last value of an option, `missing` if it was not given.
  std::string text(const std::string& option, const char* missing = "") const;
  /// All values of an option.
  std::vector<std::string> texts(const std::string& option) const;
  /// The number of an option that must be there. Throws a Failure if it is not, or is no int.
  int number(const std::string& option) const;
  /// Where the value of an option stands among the choices. Throws a Failure if it does not.
  int choice(const std::string& option, const std::vector<std::string>& choices, const char* missing) const;
  /// The words from that index on, parted at their first "=". Throws a Failure if one has no name before it.
  std::vector<std::pair<std::string, std::string>> assignments(std::size_t first) const;
};

/// Sorts the words as the command's usage tells. Throws a Failure if they do not fit it; with --help any
/// number of them does.
Arguments read_arguments(const Command& command, const std::vector<std::string>& words);

/// The int that the whole text is. Throws a Failure if it is none.
int whole_number(const std::string& text);
