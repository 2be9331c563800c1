// The rows of a tree, one for each node in pre-order.
#pragma once

#include <rytree_Utils.h>

#include "arguments.h"

/// The flags of rytree_get_node_ex and rytree_move_node that say which nodes have a row, from the options
/// --branches and --level.
DWORD row_flags(const Arguments& arguments);

/// Calls `visit` with each node that has a row, the row and the level, beginning with the root.
template <class Visit>
void visit_rows(RYXmlWrapperBase& root, DWORD flags, Visit visit) {
  const bool branches = (flags & kNodeBranchesOnly) != 0;
  const int deepest = (flags & kNodeLimitLevel) != 0 ? static_cast<int>(flags & kNodeLevelMask) + 1 : -1;
  int row = 0;
  const auto walk = [&](const auto& self, RYXmlWrapperBase& node, int level) -> void {
    if (level == 0 || !branches || node.GetNodeCount() > 0) visit(node, ++row, level);
    if (level == deepest) return;
    RYXmlWrapperBase child;
    for (node.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
      self(self, child, level + 1);
    }
  };
  walk(walk, root, 0);
}
