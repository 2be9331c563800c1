#include "nodes.h"

void set_value(RYXmlWrapperBase& node, const std::string& text) {
  CString value(text.c_str());
  node.NodeValue(value, /*get=*/0, 1, nullptr);
}
