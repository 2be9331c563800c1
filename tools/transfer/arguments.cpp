#include "arguments.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "failure.h"
#include "options.h"
#include "platform/paths.h"
#include "streams.h"

const char* const kHelp =
    "rytree-transfer [OPTION…] SOURCE TARGET RESULT [THEME]\n"
    "rytree-transfer --dry-run [OPTION…] SOURCE TARGET\n"
    "\n"
    "Carries the settings of one tree over to another version of it: nodes with equal IDs correspond.\n"
    "\n"
    "  SOURCE   the XML file whose values are taken\n"
    "  TARGET   the XML file whose nodes get them; it is only read\n"
    "  RESULT   where TARGET is written with the values of SOURCE; OldValue marks the texts that changed\n"
    "  THEME    where the IDs and values are written as a list; if not given, RESULT with .theme.xml, and\n"
    "           nowhere if RESULT is - or a FIFO\n"
    "\n"
    "Only the texts of leaves are carried, and the attributes Use (or Data), Auto and DynaUseChck.\n"
    "\n"
    "What is carried:\n"
    "  --id-attribute NAME   the attribute that holds the ID of a node, a number or a word; DataID if not\n"
    "                        given, which holds numbers\n"
    "  --base OLD_DEFAULTS   carries only the values that differ from those in this XML file, the TARGET of "
    "the\n"
    "                        version that SOURCE was made with, so that better defaults of TARGET come "
    "through\n"
    "  --prefer mine|new     decides where both SOURCE and TARGET differ from OLD_DEFAULTS: the value of "
    "SOURCE\n"
    "                        (so it is if not given) or that of TARGET\n"
    "  --no-marks            RESULT gets no new OldValue\n"
    "\n"
    "What is told:\n"
    "  --all                 prints every change and every ID without a partner, as into a pipe or a file\n"
    "  --report FILE         writes a line for each value and what became of it, with tabs between status, "
    "ID,\n"
    "                        node, old value, new value and a note. The status is applied, unchanged, kept\n"
    "                        (by a theme rule of TARGET), no-node (with this ID in TARGET), no-value (for "
    "this\n"
    "                        node in SOURCE), duplicate (an ID that came before in SOURCE), not-taken (a\n"
    "                        text of SOURCE beside children, or inside a branch that is one value), no-id "
    "(a\n"
    "                        value of SOURCE without an ID) or bad-id (an ID of no use, in any file); with\n"
    "                        --base also default (not carried) or conflict. A FILE with the ending .html\n"
    "                        becomes a page for a browser\n"
    "\n"
    "What is written:\n"
    "  --dry-run             writes neither RESULT nor THEME\n"
    "  --strict              writes neither if an ID has no node, comes twice or is of no use, a value has "
    "no ID,\n"
    "                        a text is not taken, nothing matches, or there is a conflict and no --prefer\n"
    "  --allow-no-match      writes both even if nothing matches\n"
    "  --allow-loss          writes RESULT over SOURCE or TARGET even if something in that is not kept\n"
    "\n"
    "  --help                shows this text\n"
    "  --version             shows the version\n"
    "\n"
    "A file may be -, which is standard input or standard output, or a FIFO. RESULT may be SOURCE or "
    "TARGET.\n"
    "Files that exist are replaced as a whole or not at all. Comments, processing instructions, a DOCTYPE "
    "and\n"
    "its entities, and the places of text among the children of a node are not kept in RESULT. What TARGET "
    "has\n"
    "of these is told on standard error.\n"
    "\n"
    "The exit status is 0; 1 if all is written, and only the printing or a report to a pipe failed; 2 for\n"
    "any other failure; 3 if the trees do not fit: nothing matches, or --strict finds fault. With 2 and 3, "
    "one\n"
    "line on standard error tells why, and RESULT and THEME are as they were.\n";

namespace {

struct Flag {
  std::string_view name;
  bool Arguments::*member;
};
constexpr std::array kFlags = {Flag{"--help", &Arguments::help},
                               Flag{"-h", &Arguments::help},
                               Flag{"--version", &Arguments::version},
                               Flag{"--all", &Arguments::all},
                               Flag{"--dry-run", &Arguments::dry_run},
                               Flag{"--strict", &Arguments::strict},
                               Flag{"--allow-no-match", &Arguments::allow_no_match},
                               Flag{"--allow-loss", &Arguments::allow_loss},
                               Flag{"--no-marks", &Arguments::no_marks}};

struct Option {
  std::string_view name;
  const char* needs;
  std::string Arguments::*member;
};
constexpr std::array kOptions = {Option{"--id-attribute", "NAME", &Arguments::id_attribute},
                                 Option{"--report", "FILE", &Arguments::report},
                                 Option{"--base", "FILE", &Arguments::base},
                                 Option{"--prefer", "choice, mine or new", &Arguments::prefer}};

template <class Table>
auto entry(const Table& table, std::string_view word) {
  return std::find_if(table.begin(), table.end(), [&](const auto& known) { return known.name == word; });
}

/// Reads the options and gives the other words.
std::vector<std::string> read_options(const std::vector<std::string>& words, Arguments& arguments) {
  std::vector<std::string> files;
  bool options = true;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string_view word = words[i];
    if (!options || word.size() < 2 || word[0] != '-') {
      files.emplace_back(word);
    } else if (word == "--") {
      options = false;
    } else {
      const auto [name, value] = split_option(word);
      const std::string shown(name);
      const auto* const flag = entry(kFlags, name);
      const auto* const option = entry(kOptions, name);
      if (flag != kFlags.end()) {
        if (value) throw Failure(shown + " takes no value");
        arguments.*(flag->member) = true;
      } else if (option != kOptions.end()) {
        std::string& text = arguments.*(option->member);
        if (!text.empty()) throw Failure(shown + " is given twice");
        text = value ? *value : i + 1 < words.size() ? words[++i] : "";
        if (text.empty()) throw Failure(shown + " needs a " + option->needs);
      } else {
        throw Failure("unknown option '" + shown + "', try --help");
      }
    }
  }
  return files;
}

/// Throws a Failure if an option would have no effect.
void check_options(const Arguments& arguments) {
  const std::string& prefer = arguments.prefer;
  if (!prefer.empty() && prefer != "mine" && prefer != "new")
    throw Failure("--prefer is mine or new, not '" + prefer + "'");
  if (!prefer.empty() && arguments.base.empty()) throw Failure("--prefer goes with --base");
  if (arguments.strict && arguments.allow_no_match)
    throw Failure("--strict and --allow-no-match exclude each other");
  if (arguments.allow_loss && arguments.result.empty()) throw Failure("--allow-loss goes with a RESULT");
}

/// Throws a Failure if an output is another file of the command line; only RESULT may be SOURCE or TARGET, unless that
/// is OLD_DEFAULTS too.
void check_files(const Arguments& arguments) {
  const std::vector<std::string> inputs = {arguments.source, arguments.target, arguments.base};
  if (std::count(inputs.begin(), inputs.end(), "-") > 1) throw Failure("only one file can be standard input");
  const std::vector<std::string> outputs = {arguments.result, arguments.theme, arguments.report};
  if (std::count(outputs.begin(), outputs.end(), "-") > 1)
    throw Failure("only one file can be standard output");
  std::vector<std::string> taken;
  if (!arguments.base.empty()) taken.push_back(arguments.base);
  const auto check = [&](const char* name, const std::string& file) {
    for (const std::string& other : taken) {
      if (!is_stream(file) && platform::IsSamePlace(file, other))
        throw Failure(file + ": " + name + " would overwrite " + other);
    }
  };
  if (!arguments.result.empty()) check("RESULT", arguments.result);
  taken.insert(taken.end(), {arguments.source, arguments.target});
  if (!arguments.result.empty()) taken.push_back(arguments.result);
  if (!arguments.theme.empty()) check("THEME", arguments.theme);
  if (!arguments.theme.empty()) taken.push_back(arguments.theme);
  if (!arguments.report.empty()) check("--report", arguments.report);
}

}  // namespace

bool Arguments::writes() const {
  return !help && !version && (!dry_run || (!report.empty() && !is_stream(report)));
}

bool Arguments::prints_output() const {
  return is_standard(report) || (!dry_run && (is_standard(result) || is_standard(theme)));
}

Arguments read_arguments(const std::vector<std::string>& words) {
  Arguments arguments;
  const std::vector<std::string> files = read_options(words, arguments);
  if (arguments.help || arguments.version) return arguments;
  if (files.size() < 2 || (files.size() < 3 && !arguments.dry_run))
    throw Failure("SOURCE, TARGET and RESULT are needed, try --help");
  if (files.size() > 4) throw Failure("unexpected argument '" + files[4] + "', try --help");
  for (const std::string& file : files) {
    if (file.empty()) throw Failure("a file name is empty");
  }
  arguments.source = input_name(files[0]);
  arguments.target = input_name(files[1]);
  if (files.size() > 2) arguments.result = output_name(files[2]);
  if (files.size() > 3) {
    arguments.theme = output_name(files[3]);
  } else if (!arguments.result.empty() && !is_stream(arguments.result)) {
    arguments.theme = platform::FromPath(platform::ToPath(arguments.result).replace_extension(".theme.xml"));
  }
  arguments.base = input_name(arguments.base);
  arguments.report = output_name(arguments.report);
  check_options(arguments);
  check_files(arguments);
  return arguments;
}
