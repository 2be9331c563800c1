// The command that compares two trees.
#include <rytree_Utils/extras.h>

#include <algorithm>
#include <iostream>

#include "columns.h"
#include "commands.h"
#include "ids.h"
#include "nodes.h"
#include "streams.h"
#include "table.h"
#include "terminal.h"

namespace {

const char* name_of(rytree::DifferenceKind kind) {
  switch (kind) {
    case rytree::DifferenceKind::kAdded:
      return "added";
    case rytree::DifferenceKind::kRemoved:
      return "removed";
    case rytree::DifferenceKind::kMoved:
      return "moved";
    case rytree::DifferenceKind::kChanged:
      break;
  }
  return "changed";
}

/// A path with full stops, as elsewhere in this program.
std::string dotted(std::string path) {
  std::replace(path.begin(), path.end(), '/', '.');
  return path;
}

std::string part_of(const rytree::Difference& difference) {
  if (difference.kind != rytree::DifferenceKind::kChanged) return "";
  switch (difference.part) {
    case rytree::NodePart::kTag:
      return " (tag)";
    case rytree::NodePart::kNodeId:
      return " (node ID)";
    case rytree::NodePart::kText:
      return "";
    case rytree::NodePart::kAttribute:
      break;
  }
  return '@' + difference.attribute;
}

Row row_of(const rytree::Difference& difference, const Ids& ids) {
  const bool removed = difference.kind == rytree::DifferenceKind::kRemoved;
  Row row = {name_of(difference.kind),
             dotted(removed ? difference.old_path : difference.new_path) + part_of(difference),
             difference.id == -1 ? "" : ids.text(difference.id), "", ""};
  if (difference.kind == rytree::DifferenceKind::kMoved) {
    const auto place = [](const std::string& path, int index) {
      return dotted(path) + ", child " + std::to_string(index + 1);
    };
    row[3] = place(difference.old_path, difference.old_place);
    row[4] = place(difference.new_path, difference.new_place);
    return row;
  }
  if (difference.kind != rytree::DifferenceKind::kAdded) row[3] = shown(difference.old_value);
  if (!removed) row[4] = shown(difference.new_value);
  return row;
}

/// Tells of IDs that nothing can be compared by.
void warn_of_bad_ids(const Ids& ids, const RYXmlWrapperBase& tree, const std::string& file) {
  std::vector<std::string> bad;
  for (const BadId& one : ids.bad_ones(tree)) {
    if (!rytree::int_attribute_of(one.node, ids.attribute()))
      bad.push_back(path_of(one.node) + " '" + one.id + "'");
  }
  if (bad.empty()) return;
  std::cerr << "rytree-tree: "
            << one_line(shown_input(file) + ": " + counted(static_cast<int>(bad.size()), "ID is", "IDs are") +
                        " of no use: " + first_of(bad))
            << '\n';
}

}  // namespace

Outcome diff(Document& document, const Arguments& arguments) {
  const bool by_path = arguments.choice("--by", {"id", "path"}, "id") == 1;
  if (by_path && arguments.has("--id-attribute")) throw Failure("--id-attribute goes with --by id");
  const RYXmlWrapperBase other = load_tree(arguments.words[1]);
  Ids ids(arguments.text("--id-attribute"));
  if (!by_path) {
    const int nodes = ids.number({document.root, other});
    if (nodes == 0 && arguments.has("--id-attribute")) {
      throw Failure(shown_input(document.file) + " and " + shown_input(arguments.words[1]) +
                    ": no node has the attribute '" + arguments.text("--id-attribute") + "'");
    }
    warn_of_bad_ids(ids, document.root, document.file);
    warn_of_bad_ids(ids, other, arguments.words[1]);
  }
  const std::vector<rytree::Difference> differences =
      by_path ? rytree::differences_by_path(document.root, other)
              : rytree::differences_by_id(document.root, other, ids.argument());
  std::vector<Row> rows;
  for (const rytree::Difference& difference : differences) {
    if (difference.attribute != ids.attribute() || !ids.are_words()) rows.push_back(row_of(difference, ids));
  }
  const bool differ = !rows.empty();
  print_rows(std::cout, std::move(rows), Terminal::of_standard_output().columns, /*path=*/1);
  return {.status = differ ? 1 : 0};
}
