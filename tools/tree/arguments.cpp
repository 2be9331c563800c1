#include "arguments.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <sstream>

#include "commands.h"
#include "failure.h"
#include "options.h"

namespace {

/// What a usage line allows.
struct Grammar {
  std::size_t least = 0;  // number of words
  std::size_t most = 0;
  enum class Value { kNone, kOne, kMany };
  std::map<std::string, Value> options = {{"--help", Value::kNone}, {"-h", Value::kNone}};
};

/// Reads a usage line. An option has a value unless a bracket closes right after it; a word in brackets may be
/// left out; one with "…" may be repeated, and so may an option with such a value.
Grammar read_usage(const std::string& usage) {
  constexpr const char* kBrackets = "[]()|";
  Grammar grammar;
  std::string option;  // whose value follows
  std::istringstream tokens(usage);
  for (std::string token; tokens >> token;) {
    const std::size_t start = token.find_first_not_of(kBrackets);
    if (start == std::string::npos) continue;
    const std::size_t end = token.find_last_not_of(kBrackets) + 1;
    if (token[start] == '-') {
      const std::string name = token.substr(start, end - start);
      const bool value_follows = end == token.size();
      grammar.options[name] = value_follows ? Grammar::Value::kOne : Grammar::Value::kNone;
      option = value_follows ? name : "";
      continue;
    }
    const bool repeated = token.find("…") != std::string::npos;
    if (!option.empty()) {
      if (repeated) grammar.options[option] = Grammar::Value::kMany;
      option.clear();
    } else {
      if (start == 0) ++grammar.least;
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
  try {
    return whole_number(text(option));
  } catch (const Failure& failure) {
    throw Failure(option + ": " + failure.what());
  }
}

int Arguments::choice(const std::string& option, const std::vector<std::string>& choices,
                      const char* missing) const {
  const std::string chosen = text(option, missing);
  const auto found = std::find(choices.begin(), choices.end(), chosen);
  if (found != choices.end()) return static_cast<int>(found - choices.begin());
  std::string names;
  for (std::size_t i = 0; i < choices.size(); ++i)
    names += (i == 0 ? "" : i + 1 < choices.size() ? ", " : " or ") + choices[i];
  throw Failure(option + " is " + names + ", not '" + chosen + "'");
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
    const auto [view, value] = split_option(word);
    const std::string name(view);
    const auto option = grammar.options.find(name);
    if (option == grammar.options.end()) throw Failure("unknown option '" + name + "'" + hint);
    std::vector<std::string>& given = arguments.options[name == "-h" ? "--help" : name];
    if (option->second == Grammar::Value::kNone) {
      if (value) throw Failure(name + " takes no value" + hint);
      given.emplace_back();
      continue;
    }
    if (!value && i + 1 == words.size()) throw Failure(name + " needs a value" + hint);
    if (option->second == Grammar::Value::kOne && !given.empty()) throw Failure(name + " is given twice");
    given.push_back(value ? *value : words[++i]);
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
