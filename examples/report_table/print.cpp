#include "print.h"

#include <rytree_Utils.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

namespace {

using Line = std::vector<std::string>;

constexpr const char* kTable = "Table";
constexpr int kColumns = 8;

std::string tag_of(const RYXmlWrapperBase& node) {
  CString tag;
  node.GetTagName(tag);
  return std::string(tag.View());
}

std::string value_of(RYXmlWrapperBase& node) {
  CString value;
  node.NodeValue(value, /*get=*/1, 1, nullptr);
  return std::string(value.View());
}

void print_aligned(std::ostream& out, const std::vector<Line>& lines) {
  std::vector<std::size_t> widths;
  for (const Line& line : lines) {
    widths.resize(std::max(widths.size(), line.size()));
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], line[i].size());
  }
  for (const Line& line : lines) {
    std::string shown;
    for (std::size_t i = 0; i < line.size(); ++i) {
      shown += line[i] + std::string(widths[i] - line[i].size() + 2, ' ');
    }
    out << shown.substr(0, shown.find_last_not_of(' ') + 1) << '\n';
  }
}

std::string shown_value(RYXmlWrapperBase& node) {
  double number = 0;
  const bool missing = node.NodeValue(number, /*get=*/1) != 0 && number == kMissingValue;
  return missing ? "(missing)" : value_of(node);
}

std::string attribute_of(const RYXmlWrapperBase& node, const char* name) {
  CString value;
  node.GetPropertyValue(name, value);
  return std::string(value.View());
}

std::string node_id_of(const RYXmlWrapperBase& node) {
  int id = 0;
  return node.GetID(id) != 0 ? std::to_string(id) : "";
}

void list_node(std::vector<Line>& lines, RYXmlWrapperBase& node, const std::string& indent) {
  if (tag_of(node) == kTable) return;
  lines.push_back({indent + tag_of(node), shown_value(node), attribute_of(node, "Label"),
                   attribute_of(node, "DataID"), attribute_of(node, "RepeatID"), node_id_of(node),
                   attribute_of(node, "Show")});
  RYXmlWrapperBase child;
  for (node.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
    list_node(lines, child, indent + "  ");
  }
}

/// Lists a row of the table, and puts the labels of its cells into the heading.
void list_row(std::vector<Line>& lines, RYXmlWrapperBase& row) {
  Line line = {tag_of(row), attribute_of(row, "Label"), attribute_of(row, "SubHeader0")};
  for (int column = 1; column <= kColumns; ++column) {
    RYXmlWrapperBase cell;
    const bool there = row.FindChild(("C" + std::to_string(column)).c_str(), cell, 1) != 0;
    line.push_back(there ? shown_value(cell) : "-");
    if (there) lines.front()[line.size() - 1] = attribute_of(cell, "Label");
  }
  lines.push_back(line);
}

}  // namespace

void print_tree(std::ostream& out, RYXmlWrapperBase& report) {
  std::vector<Line> lines = {{"Node", "Value", "Label", "DataID", "RepeatID", "Node ID", "Show"}};
  list_node(lines, report, "");
  print_aligned(out, lines);
}

void print_table(std::ostream& out, RYXmlWrapperBase& report) {
  RYXmlWrapperBase table;
  report.FindChild(kTable, table, 1);
  std::vector<Line> lines = {{"Row", "Set", "Variable"}};
  lines.front().resize(lines.front().size() + kColumns);
  RYXmlWrapperBase row;
  for (table.FirstChild(row); row.IsNodeValid() != 0; row.NextSibling(row)) list_row(lines, row);
  print_aligned(out, lines);
}
