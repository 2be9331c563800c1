#include "document.h"

#include <charconv>
#include <string_view>
#include <utility>

#include "arguments.h"
#include "losses.h"

namespace {

struct Step {
  std::string_view tag;
  unsigned number = 1;  // among the siblings of that tag; 0: what was written is not a number
};

Step step_of(std::string_view text) {
  const auto bracket = text.find('[');
  if (bracket == text.npos) return {text};
  Step step{text.substr(0, bracket), 0};
  const auto number = text.substr(bracket + 1);
  unsigned value = 0;
  const char* const end = number.data() + number.size();
  const auto [stop, error] = std::from_chars(number.data(), end, value);
  if (error == std::errc() && std::string_view(stop, end) == "]") step.number = value;
  return step;
}

int count_of(RYXmlWrapperBase& top) {
  return 1 + rytree_count_items_by_attribute(&top, nullptr, nullptr, /*countMissing=*/0, /*recursive=*/1);
}

// The row of a node below the root, by a path with numbers as "Root.Line[2].Width". -1 if there is none.
int row_of_numbered(RYXmlWrapperBase node, std::string_view path) {
  CString tag;
  for (int row = 1;; ++row, node.FirstChild(node)) {
    const auto stop = path.find('.');
    auto [name, number] = step_of(path.substr(0, stop));
    for (;; row += count_of(node), node.NextSibling(node)) {
      if (node.IsNodeValid() == 0) return -1;
      if (node.GetTagName(tag) != 0 && tag.View() == name && --number == 0) break;
    }
    if (stop == path.npos) return row;
    path.remove_prefix(stop + 1);
  }
}

}  // namespace

Document::Document(std::string file_name) : file(std::move(file_name)) {
  if (file.empty()) throw Failure("a file name is empty");
  root = load_tree(file);
  lost = not_kept();
}

Place Document::at(const std::string& place) {
  const bool is_row = place.find_first_not_of("0123456789") == std::string::npos && !place.empty();
  Place found;
  found.row = is_row                                 ? whole_number(place)
              : place.find('[') != std::string::npos ? row_of_numbered(root, place)
                                                     : rytree_get_row_number(&root, place.c_str());
  found.node = node_at_row(root, found.row);
  if (found.node.IsNodeValid() == 0) miss("no node '" + place + "'");
  found.level = rytree_get_level(&found.path, &found.node, nullptr, /*stopAtEventRoot=*/0);
  return found;
}

int Document::count() { return count_of(root); }

RYXmlWrapperBase node_at_row(RYXmlWrapperBase& root, int row, DWORD flags) {
  if (row == 1) return root;
  RYXmlWrapperBase node;
  if (row > 1) rytree_get_node_ex(&root, &node, row - 2, flags, nullptr);
  return node;
}
