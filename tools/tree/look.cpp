// The commands that only look.
#include <iostream>
#include <optional>

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
  return {"row    " + std::to_string(place.row) + "\nlevel  " + std::to_string(place.level) + "\npath   " +
          one_line(place.path.View()) + "\nlabel  " + one_line(label.View()) + "\nvalue  " +
          one_line(rytree::text_of(place.node)) + '\n'};
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
