// Looks at the tree in an XML file, and makes small repairs.
#include <algorithm>
#include <exception>
#include <iostream>

#include "columns.h"
#include "commands.h"
#include "losses.h"
#include "version.h"

namespace {

/// Writes a changed tree where the options say, and gives the text to print.
std::string finish(const Document& document, const Arguments& arguments, const Outcome& outcome) {
  const bool in_place = arguments.has("--in-place");
  const bool writes = in_place || arguments.has("-o");
  if (!outcome.changed) {
    if (writes) throw Failure("nothing changes, so there is nothing to write");
    return outcome.text;
  }
  const std::string target = in_place ? document.file : arguments.text("-o");
  if (writes) {
    refuse_loss(document.file, document.lost, target, arguments.has("--allow-loss"));
    document.save(target);
  }
  if (!document.lost.empty())
    std::cerr << "rytree-tree: " << one_line(document.file + ": " + document.lost) << '\n';
  return one_line(outcome.text) + '\n' +
         (writes ? "written to " + one_line(target) : "nothing written: -o FILE or --in-place does that") +
         '\n';
}

std::string run(const std::vector<std::string>& words) {
  if (words.empty()) throw Failure("a COMMAND is needed, try rytree-tree --help");
  if (words[0] == "--help" || words[0] == "-h") return help();
  if (words[0] == "--version") return version_text("rytree-tree");
  const Command* const command = find_command(words[0]);
  if (command == nullptr) throw Failure("unknown command '" + words[0] + "', try rytree-tree --help");
  const Arguments arguments = read_arguments(*command, {words.begin() + 1, words.end()});
  if (arguments.has("--help")) return help(*command);
  if (arguments.has("-o") && arguments.has("--in-place"))
    throw Failure("-o and --in-place exclude each other");
  Document document(arguments.words[0]);
  return finish(document, arguments, command->run(document, arguments));
}

int report(const std::exception& failure, int status) {
  std::cerr << "rytree-tree: " << one_line(failure.what()) << '\n';
  return status;
}

}  // namespace

int main(int count, char** words) {
  try {
    std::cout << run({words + std::min(count, 1), words + count});
    if (std::cout.flush()) return 0;
    throw Failure("cannot write to standard output");
  } catch (const NotFound& failure) {
    return report(failure, 1);
  } catch (const std::exception& failure) {
    return report(failure, 2);
  }
}
