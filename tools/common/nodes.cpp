#include "nodes.h"

std::string path_of(RYXmlWrapperBase node) {
  CString path;
  VCTreeGetPathStr(path, &node);
  return std::string(path.View());
}

void set_value(RYXmlWrapperBase& node, const std::string& text) {
  CString value(text.c_str());
  node.NodeValue(value, /*get=*/0, 1, nullptr);
}
