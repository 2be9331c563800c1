// The commands that read and write values and attributes.
#include "columns.h"
#include "commands.h"
#include "nodes.h"

namespace {

char separator(const Arguments& arguments, const char* option, const char* missing) {
  const std::string text = arguments.text(option, missing);
  if (text.size() != 1) throw Failure(std::string(option) + " is one character of ASCII");
  return text[0];
}

}  // namespace

Outcome pairs(Document& document, const Arguments& arguments) {
  const char key_separator = separator(arguments, "--key-separator", "=");
  const char pair_separator = separator(arguments, "--pair-separator", ",");
  Place place = document.at(arguments.words[1]);
  const std::string path(place.path.View());
  if (arguments.words.size() == 2) {
    CString text;
    if (rytree_branch_to_key_value_pairs_str(&place.node, &text, key_separator, pair_separator) == 0)
      document.miss("no children below " + path);
    return {std::string(text.View()) + '\n'};
  }
  const std::string& text = arguments.words[2];
  if (rytree_key_value_pairs_str_to_branch(&place.node, text.c_str(), key_separator, pair_separator) == 0)
    throw Failure("no pair in '" + text + "'");
  return {counted(place.node.GetNodeCount(), "pair", "pairs") + " put below " + path, true};
}

Outcome set(Document& document, const Arguments& arguments) {
  const auto attributes = arguments.assignments(2);
  const bool with_value = arguments.has("--value");
  if (attributes.empty() && !with_value) throw Failure("ATTRIBUTE=VALUE or --value is needed");
  Place place = document.at(arguments.words[1]);
  for (const auto& [name, value] : attributes) {
    if (place.node.SetPropertyValue(name.c_str(), value.c_str()) == 0)
      throw Failure("'" + name + "' is not an attribute name");
  }
  if (with_value) set_value(place.node, arguments.text("--value"));
  return {"set " + counted(static_cast<int>(attributes.size()), "attribute", "attributes") +
              (with_value ? " and the value" : "") + " of " + std::string(place.path.View()),
          true};
}
