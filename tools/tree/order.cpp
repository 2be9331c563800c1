// The commands that arrange and number nodes.
#include <rytree_Utils.h>

#include "columns.h"
#include "commands.h"
#include "nodes.h"
#include "rows.h"

namespace {

/// Calls `visit` with each child.
template <class Visit>
void visit_children(const RYXmlWrapperBase& parent, Visit visit) {
  RYXmlWrapperBase child;
  for (parent.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) visit(child);
}

/// Whether a tag is the prefix, in upper or lower case, and a number.
bool is_numbered(const std::string& tag, const std::string& prefix) {
  const std::size_t end = tag.find_last_not_of("0123456789") + 1;
  return end < tag.size() && CString(tag.substr(0, end).c_str()).CompareNoCase(prefix.c_str()) == 0;
}

/// VCTreeSetTagName does not take an empty node, so it gets a text for the time of the call.
bool set_tag(RYXmlWrapperBase& node, const std::string& tag) {
  const bool bare = node.IsEmpty() != 0;
  if (bare) set_value(node, "-");
  const bool done = VCTreeSetTagName(&node, tag.c_str());
  if (bare) set_value(node, "");
  return done;
}

}  // namespace

Outcome sort(Document& document, const Arguments& arguments) {
  Place parent = document.at(arguments.words[1]);
  const std::string& attribute = arguments.words[2];
  refuse_reserved(attribute);
  int sortable = 0;
  visit_children(parent.node, [&](const RYXmlWrapperBase& child) {
    int value = 0;
    if (child.GetPropertyValue(attribute.c_str(), value) != 0) ++sortable;
  });
  const std::string path(parent.path.View());
  if (sortable == 0) document.miss("no child of " + path + " has an int attribute '" + attribute + "'");
  rytree_sort_children_by_int_attribute(&parent.node, attribute.c_str(),
                                        arguments.has("--descending") ? 0 : 1);
  return {"sorted " + std::to_string(sortable) + " of " +
              counted(parent.node.GetNodeCount(), "child", "children") + " of " + path + " by " + attribute,
          true};
}

Outcome move(Document& document, const Arguments& arguments) {
  const DWORD flags = row_flags(arguments);
  const auto row = [&](const std::string& word) {
    const int number = whole_number(word);
    if (node_at_row(document.root, number, flags).IsNodeValid() == 0) document.miss("no row " + word);
    if (number == 1) throw Failure("row 1 is the root, which stays the first");
    return number;
  };
  const std::string& to_word = arguments.words[2];
  const int from = row(arguments.words[1]);
  const int to = to_word == "end" ? -1 : row(to_word) - 2;
  if (rytree_move_node(&document.root, from - 2, to, static_cast<int>(flags), nullptr) == 0) {
    document.fail("row " + std::to_string(from) + " cannot go to row " + to_word +
                  ": that lies inside it, or too deep for it");
  }
  return {"moved row " + std::to_string(from) + " to " + (to < 0 ? "the end" : "row " + to_word), true};
}

Outcome renumber(Document& document, const Arguments& arguments) {
  const Place parent = document.at(arguments.words[1]);
  const std::string& prefix = arguments.words[2];
  int number = 0;
  visit_children(parent.node, [&](RYXmlWrapperBase& child) {
    if (!is_numbered(rytree::tag_of(child), prefix)) return;
    const std::string tag = prefix + std::to_string(++number);
    if (!set_tag(child, tag)) document.fail("cannot give the tag '" + tag + "'");
  });
  const std::string path(parent.path.View());
  if (number == 0) document.miss("no child of " + path + " is '" + prefix + "' and a number");
  return {"numbered " + counted(number, "child", "children") + " of " + path + " from " + prefix + "1 on",
          true};
}
