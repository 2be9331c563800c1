// Tests on nodes: whether a variable is an input or an output, and which options are in force.
#include <rytree_Utils/variable_node.h>

#include "frame/attributes.h"
#include "frame/check_get.h"
#include "frame/flag.h"
#include "frame/node_text.h"

namespace {

constexpr int kInput = 0;
constexpr int kOutput = 1;

bool is_kind(RYXmlWrapperBase& node, int kind, bool strict) {
  RYXmlWrapperBase io;
  if (!find_child(io, node, "io")) return false;
  int value = kInput;
  read_number(io, value);
  return value == kind || (value != kInput && value != kOutput && !strict);
}

}  // namespace

extern "C" bool flagged_XVarNode_IsInput(RYXmlWrapperBase& node, Flag strict) {
  return is_kind(node, kInput, is_set(strict));
}
[[gnu::alias("flagged_XVarNode_IsInput")]] decltype(XVarNode_IsInput) XVarNode_IsInput;

extern "C" bool flagged_XVarNode_IsOutput(RYXmlWrapperBase& node, Flag strict) {
  return is_kind(node, kOutput, is_set(strict));
}
[[gnu::alias("flagged_XVarNode_IsOutput")]] decltype(XVarNode_IsOutput) XVarNode_IsOutput;

int vctree_test_ICOPT_recursively(RYXmlWrapperBase& node, unsigned long mask) {
  for (RYXmlWrapperBase at(node); at.IsNodeValid() != 0; at.GetParent(at)) {
    int options = 0;
    if (at.GetPropertyValue(kInteractiveOptionsName, options) == 0) continue;
    return (static_cast<DWORD>(options) & mask) != 0 ? 1 : 0;
  }
  return 0;
}
