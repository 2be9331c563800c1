// Marked nodes get their old values back.
#include <rytree_Utils/changes.h>
#include <rytree_Utils/extras.h>

#include <string_view>

namespace rytree {

namespace {

constexpr unsigned kValueIsData = 0x100000;  // bit of "ThemeApplicability"

/// Takes the decoration of that name off the front of a value and makes it the attribute; without one the
/// attribute is removed.
void take_decoration(RYXmlWrapperBase& node, const std::string& name, std::string_view& value) {
  const std::string start = "::{" + name + "=";
  const std::size_t end = value.starts_with(start) ? value.find('}', start.size()) : std::string_view::npos;
  if (end == std::string_view::npos) {
    node.RemoveProperty(name.c_str());
    return;
  }
  node.SetPropertyValue(name.c_str(), CString(value.substr(start.size(), end - start.size())));
  value.remove_prefix(end + 1);
}

void write_value(RYXmlWrapperBase& node, std::string_view value) {
  if (node.GetNodeCount() == 0) {
    node.CheckSetValue(0, CString(value), 0);
    return;
  }
  const unsigned theme = static_cast<unsigned>(int_attribute_of(node, "ThemeApplicability").value_or(0));
  const char* const name = (theme & kValueIsData) != 0 ? "Data" : "Use";
  if (value != "-1" || attribute_of(node, name)) node.SetPropertyValue(name, CString(value));
}

bool undo(RYXmlWrapperBase& node, OldValues form) {
  const std::optional<std::string> old_value = attribute_of(node, "OldValue");
  if (!old_value) return false;
  std::string_view value = *old_value;
  if (form == OldValues::kDecorated) {
    take_decoration(node, "Auto", value);
    take_decoration(node, "DynaUseChck", value);
  } else if (node.GetNodeCount() > 0) {
    return false;
  }
  write_value(node, value);
  rytree_node_changed(&node, 1, nullptr);
  return true;
}

}  // namespace

int undo_changes(RYXmlWrapperBase& node, OldValues form) {
  int count = 0;
  RYXmlWrapperBase at;
  for (node.FirstChild(at); at.IsNodeValid() != 0; at.NextBelow(at, node)) {
    if (undo(at, form)) ++count;
  }
  return count;
}

}  // namespace rytree
