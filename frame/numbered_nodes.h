// The numbering of nodes by which they are found and moved.
#pragma once

#include <rytree_Utils/lookup.h>

/// The filters of rytree_get_node as a flag word packs them.
struct NumberFilters {
  int max_level;  // -1: no limit
  bool attribute_ends_descent;
  bool branches_only;
};

inline NumberFilters number_filters(DWORD flags) {
  return {.max_level = (flags & kNodeLimitLevel) != 0 ? static_cast<int>(flags & kNodeLevelMask) : -1,
          .attribute_ends_descent = (flags & kNodeAttributeRequired) == 0,
          .branches_only = (flags & kNodeBranchesOnly) != 0};
}
