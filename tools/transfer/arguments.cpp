#include "arguments.h"

#include <filesystem>
#include <string_view>
#include <vector>

#include "failure.h"
#include "losses.h"

namespace fs = std::filesystem;

const char* const kHelp =
    "rytree-transfer [--id-attribute NAME] [--allow-loss] SOURCE TARGET RESULT [THEME]\n"
    "\n"
    "Carries the settings of one tree over to another version of it: nodes with equal IDs correspond.\n"
    "\n"
    "  SOURCE   the XML file whose values are taken\n"
    "  TARGET   the XML file whose nodes get them; it is only read\n"
    "  RESULT   where TARGET is written with the values of SOURCE; OldValue marks what changed\n"
    "  THEME    where the IDs and values are written as a list; RESULT with .theme.xml if not given\n"
    "\n"
    "  --id-attribute NAME   the attribute that holds the ID of a node; DataID if not given\n"
    "  --allow-loss          writes RESULT over SOURCE or TARGET even if something in that is not kept\n"
    "  --help                shows this text\n"
    "  --version             shows the version\n"
    "\n"
    "RESULT may be SOURCE or TARGET. Files that exist are replaced as a whole or not at all.\n"
    "Comments, processing instructions, a DOCTYPE and its entities, and the places of text among the "
    "children\n"
    "of a node are not kept in RESULT. What TARGET has of these is told on standard error.\n"
    "The exit status is 0; 2 with one line on standard error, RESULT and THEME untouched; or 1 if only the\n"
    "report could not be written.\n";

namespace {

bool same_place(const std::string& left, const std::string& right) {
  std::error_code error;
  if (same_file(left, right)) return true;
  const fs::path place = fs::weakly_canonical(fs::absolute(left, error), error);
  return !error && place == fs::weakly_canonical(fs::absolute(right, error), error);
}

/// Reads the options and gives the other words.
std::vector<std::string> read_options(int count, char** words, Arguments& arguments) {
  constexpr std::string_view kIdOption = "--id-attribute";
  std::vector<std::string> files;
  bool options = true;
  for (int i = 1; i < count; ++i) {
    const std::string_view word = words[i];
    if (!options || word.size() < 2 || word[0] != '-') {
      files.emplace_back(word);
    } else if (word == "--") {
      options = false;
    } else if (word == "--help" || word == "-h") {
      arguments.help = true;
    } else if (word == "--version") {
      arguments.version = true;
    } else if (word == "--allow-loss") {
      arguments.allow_loss = true;
    } else if (word == kIdOption && i + 1 < count) {
      arguments.id_attribute = words[++i];
      if (arguments.id_attribute.empty()) throw Failure("--id-attribute needs a NAME");
    } else if (word == kIdOption) {
      throw Failure("--id-attribute needs a NAME");
    } else {
      throw Failure("unknown option '" + std::string(word) + "', try --help");
    }
  }
  return files;
}

}  // namespace

Arguments read_arguments(int count, char** words) {
  Arguments arguments;
  const std::vector<std::string> files = read_options(count, words, arguments);
  if (arguments.help || arguments.version) return arguments;
  if (files.size() < 3) throw Failure("SOURCE, TARGET and RESULT are needed, try --help");
  if (files.size() > 4) throw Failure("unexpected argument '" + files[4] + "', try --help");
  for (const std::string& file : files) {
    if (file.empty()) throw Failure("a file name is empty");
  }
  arguments.source = files[0];
  arguments.target = files[1];
  arguments.result = files[2];
  arguments.theme = files.size() > 3 ? files[3] : fs::path(files[2]).replace_extension(".theme.xml").string();
  for (const std::string& other : {arguments.source, arguments.target, arguments.result}) {
    if (same_place(arguments.theme, other))
      throw Failure(arguments.theme + ": THEME would overwrite " + other);
  }
  return arguments;
}
