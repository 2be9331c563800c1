#include "nodes.h"

std::string tag_of(const RYXmlWrapperBase& node) {
  CString tag;
  node.GetTagName(tag);
  return std::string(tag.View());
}

std::string value_of(RYXmlWrapperBase node) {
  CString value;
  node.NodeValue(value, /*get=*/1, 1, nullptr);
  return std::string(value.View());
}

std::optional<std::string> attribute_of(const RYXmlWrapperBase& node, const char* name) {
  CString value;
  if (node.GetPropertyValue(name, value) == 0) return std::nullopt;
  return std::string(value.View());
}

void set_value(RYXmlWrapperBase& node, const std::string& text) {
  CString value(text.c_str());
  node.NodeValue(value, /*get=*/0, 1, nullptr);
}
