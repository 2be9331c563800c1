#include "arguments.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <sstream>

#include "commands.h"
#include "failure.h"

namespace {

/// What a usage line allows.
struct Grammar {
  std::size_t least = 0;  // number of words
  std::size_t most = 0;
  std::map<std::string, bool> options = {{"--help", false}, {"-h", false}};  // whether a value follows
};

/// Reads a usage line. An option has a value unless a bracket closes right after it; a word in brackets may be
/// left out; one with "…" may be repeated.
Grammar read_usage(const std::string& usage) {
  constexpr const char* kBrackets = "[]()|";
  Grammar grammar;
  bool value_follows = false;
  std::istringstream tokens(usage);
  for (std::string token; tokens >> token;) {
    const std::size_t start = token.find_first_not_of(kBrackets);
    if (start == std::string::npos) continue;
    const std::size_t end = token.find_last_not_of(kBrackets) + 1;
    if (token[start] == '-') {
      value_follows = end == token.size();
      grammar.options[token.substr(start, end - start)] = value_follows;
    } else if (value_follows) {
      value_follows = false;
    } else {
      if (start == 0) ++grammar.least;
      const bool repeated = token.find("…") != std::string::npos;
      grammar.most = repeated ? std::numeric_limits<std::size_t>::max() : grammar.most + 1;
    }
  }
  return grammar;
}

}  // namespace

std::string Arguments::text(const std::string& option, const char* missing) const {
  return has(option) ? options.at(option).back() : missing;
}

std::vector<std::string> Arguments::texts(const std::string& option) const {
  return has(option) ? options.at(option) : std::vector<std::string>();
}

int Arguments::number(const std::string& option) const {
  if (!has(option)) throw Failure(option + " is needed");
  return whole_number(text(option));
}

int Arguments::choice(const std::string& option, const std::vector<std::string>& choices,
                      const char* missing) const {
  const std::string chosen = text(option, missing);
  const auto found = std::find(choices.begin(), choices.end(), chosen);
  if (found == choices.end()) throw Failure(option + " cannot be '" + chosen + "'");
  return static_cast<int>(found - choices.begin());
}

std::vector<std::pair<std::string, std::string>> Arguments::assignments(std::size_t first) const {
  std::vector<std::pair<std::string, std::string>> pairs;
  for (std::size_t i = first; i < words.size(); ++i) {
    const std::size_t place = words[i].find('=');
    if (place == std::string::npos || place == 0) throw Failure("'" + words[i] + "' is not ATTRIBUTE=VALUE");
    pairs.emplace_back(words[i].substr(0, place), words[i].substr(place + 1));
  }
  return pairs;
}

Arguments read_arguments(const Command& command, const std::vector<std::string>& words) {
  const std::string hint = std::string(", try rytree-tree ") + command.name + " --help";
  const Grammar grammar = read_usage(usage(command));
  Arguments arguments;
  bool options = true;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (!options || word.size() < 2 || word[0] != '-') {
      arguments.words.push_back(word);
      continue;
    }
    if (word == "--") {
      options = false;
      continue;
    }
    const auto option = grammar.options.find(word);
    if (option == grammar.options.end()) throw Failure("unknown option '" + word + "'" + hint);
    if (option->second && i + 1 == words.size()) throw Failure(word + " needs a value" + hint);
    arguments.options[word == "-h" ? "--help" : word].push_back(option->second ? words[++i] : "");
  }
  if (arguments.has("--help")) return arguments;
  if (arguments.words.size() < grammar.least) throw Failure("an argument is missing" + hint);
  if (arguments.words.size() > grammar.most)
    throw Failure("unexpected argument '" + arguments.words[grammar.most] + "'" + hint);
  return arguments;
}

int whole_number(const std::string& text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) throw Failure("'" + text + "' is not a number");
  return number;
}
