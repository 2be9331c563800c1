#include "commands.h"

#include <algorithm>
#include <array>

#include "columns.h"

namespace {

constexpr std::array kCommands = {
    Command{"show", "FILE [--branches] [--level N]",
            "prints the tree with row numbers, levels, labels and values\n"
            "\n"
            "  --branches  only nodes with children\n"
            "  --level N   only the root, at level 0, and the N levels below it, N being 1 to 256\n"
            "\n"
            "The row numbers count what is shown. PATH takes those of the whole tree; move takes those that "
            "show\n"
            "prints with the same options. There is colour on a terminal only, and not with NO_COLOR in the\n"
            "environment.\n",
            false, show},
    Command{"path", "FILE PATH", "prints row number, level, path, label, value and attributes of one node\n",
            false, path},
    Command{"find", "FILE ATTRIBUTE=VALUE… [--ignore-case]",
            "prints row number, path, label and value of all nodes that have all these attributes\n"
            "\n"
            "_NodeID=4 asks for the node ID 4.\n",
            false, find},
    Command{
        "diff", "FILE OTHER [--by KEY] [--id-attribute NAME]",
        "prints what OTHER has added, removed, moved and changed; status 1 if anything\n"
        "\n"
        "A line tells what it is, the path in OTHER (in FILE of what was removed), the ID, the old and the "
        "new\n"
        "value. Nothing is printed if the trees are equal. The order of attributes does not count.\n"
        "\n"
        "  --by id              nodes with equal IDs correspond, wherever they are, and nodes without an ID "
        "by\n"
        "                       their tags below corresponding nodes; so it is if --by is not given\n"
        "  --by path            all nodes correspond by their tags and places\n"
        "  --id-attribute NAME  the attribute that holds the ID, a number or a word; DataID if not given\n",
        false, diff},
    Command{
        "filter",
        "FILE --data-id N\n"
        "      (--attribute NAME (--text T [--case] [--start] | --match PATTERN [--case]) |\n"
        "       --include TEXT… --include-id N [--include-mode MODE]\n"
        "       --exclude TEXT… --exclude-id N [--exclude-mode MODE])",
        "removes, of the nodes with the DataID N, those that fail a test\n"
        "\n"
        "A node stays if its attribute NAME\n"
        "  --text T         holds T, with --start begins with it\n"
        "  --match PATTERN  matches PATTERN, in which * is any text and ? any character\n"
        "  --case           (upper and lower case are different)\n"
        "or if the texts below it, in upper or lower case, pass both of these tests, each TEXT option\n"
        "adding to its list:\n"
        "  --include TEXT   is among the texts of the nodes with the DataID --include-id:\n"
        "                   MODE all (if not given) of the list, or any of it\n"
        "  --exclude TEXT   is not among those of --exclude-id: MODE any (if not given) of the list, or\n"
        "                   all of it; or, without --exclude, MODE only: no text of --include-id is outside\n"
        "                   the include list\n",
        true, filter},
    Command{"sort", "FILE PATH ATTRIBUTE [--descending]",
            "sorts the children of a node by an int attribute\n"
            "\n"
            "Children without the attribute stay where they are.\n",
            true, sort},
    Command{
        "move", "FILE FROM TO [--branches] [--level N]",
        "moves a node to another row\n"
        "\n"
        "FROM and TO are row numbers, as show with the same options prints them. A node that moves up is\n"
        "put before the node of TO, one that moves down after it, always at its level. The TO \"end\" makes\n"
        "it the last child of the root.\n",
        true, move},
    Command{
        "renumber", "FILE PATH PREFIX",
        "gives the children PREFIX7, PREFIX3, … of a node the tags PREFIX1, PREFIX2, … in their order\n"
        "\n"
        "The prefix may be in upper or lower case. Children with other tags, and those without a number,\n"
        "stay as they are.\n",
        true, renumber},
    Command{
        "pairs", "FILE PATH [TEXT] [--key-separator C] [--pair-separator C]",
        "prints the children of a node as \"tag=value,tag=value,\", or replaces them by such a TEXT\n"
        "\n"
        "The separators are = and , if not given. Only tags and values of the children take part; nothing\n"
        "is quoted. Every pair of TEXT must have a valid tag.\n",
        true, pairs},
    Command{"set", "FILE PATH [ATTRIBUTE=VALUE…] [--value TEXT]",
            "sets attributes and the value of a node\n"
            "\n"
            "_NodeID=4 sets the node ID, and _NodeID=-1 removes it.\n",
            true, set},
    Command{"prune-empty", "FILE [PATH] [--with-attributes]",
            "removes empty leaves, and branches that hold nothing else, from the tree or below a node\n"
            "\n"
            "  --with-attributes  also those that have attributes, or a text beside their children\n",
            true, prune_empty}};

constexpr const char* kCommonHelp =
    "\n"
    "A PATH is the tags from the root down with full stops between them (\"Root.Plot.Axis\", in upper or\n"
    "lower case; of several equal tags the first is taken), or a row number as show prints it. With a\n"
    "number, as diff prints it, \"Root.Plot.Axis[2]\" is the second of several equal tags; the tags of\n"
    "such a path are spelled as in the tree.\n";

constexpr const char* kWriteHelp =
    "\n"
    "  -o FILE       writes the changed tree there; - is standard output\n"
    "  --in-place    replaces the file that was read\n"
    "  --allow-loss  replaces that file even if something in it is not kept\n"
    "\n"
    "Without -o and --in-place, nothing is written. A file is replaced as a whole or not at all. Comments,\n"
    "processing instructions, a DOCTYPE and its entities, and the places of text among the children of a "
    "node\n"
    "are not kept: what the file has of these is told on standard error.\n";

}  // namespace

const Command* find_command(const std::string& name) {
  const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                         [&](const Command& command) { return name == command.name; });
  return found == kCommands.end() ? nullptr : found;
}

std::string usage(const Command& command) {
  return std::string(command.usage) + (command.writes ? " [-o FILE | --in-place] [--allow-loss]" : "");
}

std::string help(const Command& command) {
  std::string text =
      std::string("rytree-tree ") + command.name + ' ' + usage(command) + "\n\n" + command.help;
  if (usage(command).find("PATH") != std::string::npos) text += kCommonHelp;
  if (command.writes) text += kWriteHelp;
  return text;
}

std::string help() {
  std::string text =
      "rytree-tree COMMAND FILE …\nrytree-tree --help | --version\n\nLooks at the tree in an XML file, and "
      "makes small repairs.\n\n";
  for (const Command& command : kCommands) {
    const std::string line = command.help;
    text += "  " + pad(command.name, 13) + line.substr(0, line.find('\n') + 1);
  }
  return text + kCommonHelp + kWriteHelp +
         "\nFILE may be -, which is standard input, or a FIFO. rytree-tree COMMAND --help explains a "
         "command.\n"
         "The exit status is 0; 1 if what was asked for is not in the tree, if diff finds a difference, or "
         "if "
         "the\n"
         "file is written and only the printing failed; 2 for any other failure, with one line on standard "
         "error.\n";
}
