// Reading nodes, and the equality of branches.
#include <rytree_Utils/extras.h>

#include "extras/node_comparison.h"

namespace rytree {

namespace {

template <class Value>
std::optional<Value> read(const RYXmlWrapperBase& node, const char* name) {
  Value value = Value();
  if (node.GetPropertyValue(name, value) == 0) return std::nullopt;
  return value;
}

}  // namespace

std::string tag_of(const RYXmlWrapperBase& node) {
  CString tag;
  node.GetTagName(tag);
  return std::string(tag.View());
}

std::string text_of(const RYXmlWrapperBase& node) {
  CString text;
  node.GetNodeStringWithBlobInfo(text, 0);
  return std::string(text.View());
}

RYXmlWrapperBase child_of(const RYXmlWrapperBase& node, const char* tag) {
  RYXmlWrapperBase child;
  return node.FindChild(tag, child, 1) != 0 ? child : RYXmlWrapperBase();
}

std::optional<std::string> attribute_of(const RYXmlWrapperBase& node, const char* name) {
  const std::optional<CString> value = read<CString>(node, name);
  if (!value) return std::nullopt;
  return std::string(value->View());
}
std::optional<int> int_attribute_of(const RYXmlWrapperBase& node, const char* name) {
  return read<int>(node, name);
}
std::optional<double> double_attribute_of(const RYXmlWrapperBase& node, const char* name) {
  return read<double>(node, name);
}

std::vector<Attribute> attributes_of(const RYXmlWrapperBase& node) {
  std::vector<Attribute> attributes;
  CString name;
  CString value;
  for (int i = 0; i < node.GetPropertyCount(); ++i) {
    if (node.GetPropertyAt(i, name, value) != 0)
      attributes.push_back({std::string(name.View()), std::string(value.View())});
  }
  return attributes;
}

bool are_equal(const RYXmlWrapperBase& left, const RYXmlWrapperBase& right) {
  if (left == right) return true;
  if (left.IsNodeValid() == 0 || right.IsNodeValid() == 0) return false;
  // As long as nodes have equally many children, both walks come to corresponding nodes.
  detail::NodeComparison comparison;
  RYXmlWrapperBase left_at(left);
  RYXmlWrapperBase right_at(right);
  while (left_at.IsNodeValid() != 0) {
    if (left_at.GetNodeCount() != right_at.GetNodeCount() || !comparison.are_equal(left_at, right_at))
      return false;
    left_at.NextBelow(left_at, left);
    right_at.NextBelow(right_at, right);
  }
  return true;
}

}  // namespace rytree
