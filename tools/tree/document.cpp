#include "document.h"

#include <utility>

#include "arguments.h"
#include "losses.h"

Document::Document(std::string file_name) : file(std::move(file_name)) {
  if (file.empty()) throw Failure("a file name is empty");
  root = load_tree(file);
  lost = not_kept();
}

Place Document::at(const std::string& place) {
  const bool is_row = place.find_first_not_of("0123456789") == std::string::npos && !place.empty();
  Place found;
  found.row = is_row ? whole_number(place) : rytree_get_row_number(&root, place.c_str());
  found.node = node_at_row(root, found.row);
  if (found.node.IsNodeValid() == 0) miss("no node '" + place + "'");
  found.level = rytree_get_level(&found.path, &found.node, nullptr, /*stopAtEventRoot=*/0);
  return found;
}

int Document::count() {
  return 1 + rytree_count_items_by_attribute(&root, nullptr, nullptr, /*countMissing=*/0, /*recursive=*/1);
}

RYXmlWrapperBase node_at_row(RYXmlWrapperBase& root, int row, DWORD flags) {
  if (row == 1) return root;
  RYXmlWrapperBase node;
  if (row > 1) rytree_get_node_ex(&root, &node, row - 2, flags, nullptr);
  return node;
}
