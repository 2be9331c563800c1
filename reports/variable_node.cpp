// Tests on nodes: whether a variable is an input or an output, and which options are in force.
#include <rytree_Utils/variable_node.h>

#include "frame/attributes.h"

namespace {

constexpr int kInput = 0;
constexpr int kOutput = 1;

bool is_kind(RYXmlWrapperBase& node, int kind, bool strict) {
  RYXmlWrapperBase io;
  if (node.FindChild("io", io, 1) == 0) return false;
  int value = kInput;
  io.NodeValue(value, 1);
  return value == kind || (value != kInput && value != kOutput && !strict);
}

}  // namespace

bool XVarNode_IsInput(RYXmlWrapperBase& node, bool strict) { return is_kind(node, kInput, strict); }

bool XVarNode_IsOutput(RYXmlWrapperBase& node, bool strict) { return is_kind(node, kOutput, strict); }

int vctree_test_ICOPT_recursively(RYXmlWrapperBase& node, unsigned long mask) {
  for (RYXmlWrapperBase at(node); at.IsNodeValid() != 0; at.GetParent(at)) {
    int options = 0;
    if (at.GetPropertyValue(kInteractiveOptionsName, options) == 0) continue;
    return (static_cast<DWORD>(options) & mask) != 0 ? 1 : 0;
  }
  return 0;
}
