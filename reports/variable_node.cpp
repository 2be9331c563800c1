// Tests on nodes: inputs and outputs, and options that are inherited down a tree.
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/input_table.h>

#include "frame/tag_path.h"

namespace {

constexpr int kInput = 0;
constexpr int kOutput = 1;

bool is_kind(RYXmlWrapperBase& node, int kind, bool strict) {
  RYXmlWrapperBase io;
  if (tmxfu_tree_get_node(io, node, "io", nullptr) == 0) return false;
  int value = kInput;
  tmxfu_tree_node_int_value(io, value, 1, nullptr);
  return value == kind || (value != kInput && value != kOutput && !strict);
}

}  // namespace

bool XVarNode_IsInput(RYXmlWrapperBase& node, bool strict) { return is_kind(node, kInput, strict); }

bool XVarNode_IsOutput(RYXmlWrapperBase& node, bool strict) { return is_kind(node, kOutput, strict); }

int vctree_test_ICOPT_recursively(RYXmlWrapperBase& node, unsigned long mask) {
  for (RYXmlWrapperBase at(node); at.IsNodeValid() != 0; at.GetParent(at)) {
    int options = 0;
    if (at.GetPropertyValue("InteractiveOptions", options) == 0) continue;
    return (static_cast<DWORD>(options) & mask) != 0 ? 1 : 0;
  }
  return 0;
}
