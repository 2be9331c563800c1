// Looks at the tree in an XML file, and makes small repairs.
#include <exception>
#include <iostream>

#include "columns.h"
#include "commands.h"
#include "losses.h"
#include "platform/program.h"
#include "version.h"

namespace {

constexpr const char* kUnprinted = "cannot write to standard output";

/// Writes a changed tree where the options say, and prints what was done. Throws Unprinted if it could not be
/// printed that a file was written.
void finish(const Document& document, const Arguments& arguments, const Outcome& outcome) {
  const bool in_place = arguments.has("--in-place");
  const bool writes = in_place || arguments.has("-o");
  if (!outcome.changed) {
    if (writes) throw Failure("nothing changes, so there is nothing to write");
    std::cout << outcome.text;
    return;
  }
  const std::string target = in_place ? document.file : output_name(arguments.text("-o"));
  if (writes) {
    refuse_loss(document.file, document.lost, target, arguments.has("--allow-loss"));
    save_tree(document.root, target);
  }
  if (!document.lost.empty())
    std::cerr << "rytree-tree: " << one_line(shown_input(document.file) + ": " + document.lost) << '\n';
  (writes && is_standard(target) ? std::cerr : std::cout)
      << one_line(outcome.text) << '\n'
      << (writes ? "written to " + one_line(shown_name(target))
                 : "nothing written: -o FILE or --in-place does that")
      << '\n';
  if (writes && !std::cout.flush()) throw Unprinted(kUnprinted);
}

/// Gives the exit status.
int run(const std::vector<std::string>& words) {
  if (words.empty()) throw Failure("a COMMAND is needed, try rytree-tree --help");
  const bool help_wanted = words[0] == "--help" || words[0] == "-h";
  if (help_wanted || words[0] == "--version") {
    std::cout << (help_wanted ? help() : version_text("rytree-tree"));
    return 0;
  }
  const Command* const command = find_command(words[0]);
  if (command == nullptr) throw Failure("unknown command '" + words[0] + "', try rytree-tree --help");
  const Arguments arguments = read_arguments(*command, {words.begin() + 1, words.end()});
  if (arguments.has("--help")) {
    std::cout << help(*command);
    return 0;
  }
  if (arguments.has("-o") && arguments.has("--in-place"))
    throw Failure("-o and --in-place exclude each other");
  if (arguments.has("--allow-loss") && !arguments.has("-o") && !arguments.has("--in-place"))
    throw Failure("--allow-loss goes with -o or --in-place");
  if (arguments.has("-o") && arguments.text("-o").empty()) throw Failure("a file name is empty");
  if (arguments.has("--in-place") && is_stream(arguments.words[0])) throw Failure("--in-place needs a file");
  if (command->run == diff && is_standard(input_name(arguments.words[0])) &&
      is_standard(input_name(arguments.words[1])))
    throw Failure("only one file can be standard input");
  Document document(arguments.words[0]);
  const Outcome outcome = command->run(document, arguments);
  finish(document, arguments, outcome);
  return outcome.status;
}

int report(const std::exception& failure, int status) {
  std::cerr << "rytree-tree: " << one_line(failure.what()) << '\n';
  return status;
}

}  // namespace

int main(int count, char** words) {
  try {
    const int status = run(platform::Started(count, words));
    if (std::cout.flush()) return status;
    throw Failure(kUnprinted);
  } catch (const NotFound& failure) {
    return report(failure, 1);
  } catch (const Unprinted& failure) {
    return report(failure, 1);
  } catch (const std::exception& failure) {
    return report(failure, 2);
  }
}
