#include "nodes.h"

#include "failure.h"

std::string path_of(RYXmlWrapperBase node) {
  CString path;
  VCTreeGetPathStr(path, &node);
  return std::string(path.View());
}

void refuse_reserved(const std::string& attribute) {
  if (attribute == kNodeId) throw Failure(attribute + " is the node ID, which is not an attribute");
  if (attribute == "_NodeEscape") throw Failure(attribute + " is a mark of the file, not an attribute");
}

void set_value(RYXmlWrapperBase& node, const std::string& text) {
  CString value(text.c_str());
  node.NodeValue(value, /*get=*/0, 1, nullptr);
}
