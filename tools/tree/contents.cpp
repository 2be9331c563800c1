// The commands that read and write values and attributes.
#include <rytree_host/ryUtils.h>

#include "columns.h"
#include "commands.h"
#include "nodes.h"

namespace {

char separator(const Arguments& arguments, const char* option, const char* missing) {
  const std::string text = arguments.text(option, missing);
  if (text.size() != 1 || static_cast<unsigned char>(text[0]) > 0x7F || text[0] == '"')
    throw Failure(std::string(option) + " is one character of ASCII, and not a double quote");
  return text[0];
}

/// Throws a Failure if a pair of the text would not become a child.
void refuse_bad_pairs(const std::string& text, char key_separator, char pair_separator) {
  CStringArray pairs;
  int status = 0;
  ryutilsGetTokens(text.c_str(), &pairs, pair_separator, &status, '"', 0);
  RYXmlWrapperBase trial;
  trial.CreateNew(0, nullptr);
  for (CString& pair : pairs) {
    if (pair.TrimLeft().IsEmpty()) continue;
    if (rytree_key_value_pairs_str_to_branch(&trial, pair, key_separator, pair_separator) == 0)
      throw Failure("'" + std::string(pair.View()) + "' is not a tag, '" + key_separator + "' and a value");
  }
}

}  // namespace

Outcome pairs(Document& document, const Arguments& arguments) {
  const char key_separator = separator(arguments, "--key-separator", "=");
  const char pair_separator = separator(arguments, "--pair-separator", ",");
  if (key_separator == pair_separator) throw Failure("the two separators are the same");
  Place place = document.at(arguments.words[1]);
  const std::string path(place.path.View());
  if (arguments.words.size() == 2) {
    CString text;
    if (rytree_branch_to_key_value_pairs_str(&place.node, &text, key_separator, pair_separator) == 0)
      document.miss("no children below " + path);
    return {std::string(text.View()) + '\n'};
  }
  const std::string& text = arguments.words[2];
  refuse_bad_pairs(text, key_separator, pair_separator);
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
    if (name == kNodeId) {
      place.node.SetID(whole_number(value), false);
      continue;
    }
    refuse_reserved(name);
    if (place.node.SetPropertyValue(name.c_str(), value.c_str()) == 0)
      throw Failure("'" + name + "' is not an attribute name");
  }
  if (with_value) set_value(place.node, arguments.text("--value"));
  const std::string count = counted(static_cast<int>(attributes.size()), "attribute", "attributes");
  const std::string what = attributes.empty() ? "the value" : with_value ? count + " and the value" : count;
  return {"set " + what + " of " + std::string(place.path.View()), true};
}
