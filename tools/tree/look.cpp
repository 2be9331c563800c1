// The commands that only look.
#include <algorithm>
#include <iostream>
#include <optional>
#include <utility>
#include <vector>

#include "columns.h"
#include "commands.h"
#include "listing.h"
#include "nodes.h"
#include "rows.h"

Outcome show(Document& document, const Arguments& arguments) {
  Listing listing(std::cout, Terminal::of_standard_output());
  listing.add_heading(document.root.GetTreeSize());
  visit_rows(document.root, row_flags(arguments),
             [&](RYXmlWrapperBase& node, int row, int level) { listing.add(node, row, level); });
  listing.finish();
  return {};
}

Outcome path(Document& document, const Arguments& arguments) {
  Place place = document.at(arguments.words[1]);
  const CString label = rytree_get_node_label(&place.node, /*useLabel=*/true);
  std::vector<std::pair<std::string, std::string>> lines = {{"row", std::to_string(place.row)},
                                                            {"level", std::to_string(place.level)},
                                                            {"path", std::string(place.path.View())},
                                                            {"label", std::string(label.View())},
                                                            {"value", shown(rytree::text_of(place.node))}};
  if (int id = 0; place.node.GetID(id) != 0) lines.emplace_back(kNodeId, std::to_string(id));
  for (const auto& [name, value] : rytree::attributes_of(place.node))
    lines.emplace_back('@' + one_line(name), shown(value));
  int width = 0;
  for (const auto& [name, value] : lines) width = std::max(width, Cell(name).width() + 2);
  std::string text;
  for (const auto& [name, value] : lines) text += pad(name, width) + one_line(value) + '\n';
  return {text};
}

Outcome find(Document& document, const Arguments& arguments) {
  HostStringArray names;
  HostStringArray values;
  std::optional<int> wanted_id;
  for (const auto& [name, value] : arguments.assignments(1)) {
    if (name == kNodeId) {
      wanted_id = whole_number(value);
      continue;
    }
    refuse_reserved(name);
    names.array().Add(name.c_str());
    values.array().Add(value.c_str());
  }
  const int ignore_case = arguments.has("--ignore-case") ? 1 : 0;
  Listing listing(std::cout, Terminal::of_standard_output());
  visit_rows(document.root, /*flags=*/0, [&](RYXmlWrapperBase& node, int row, int /*level*/) {
    int id = -1;
    node.GetID(id);
    if (wanted_id.value_or(id) != id) return;
    if (rytree_check_node_str_attr(&node, &names, &values, ignore_case) != 1) return;
    CString path;
    VCTreeGetPathStr(path, &node);
    listing.add(node, row, path);
  });
  if (listing.is_empty()) document.miss("no node has these attributes");
  listing.finish();
  return {};
}
