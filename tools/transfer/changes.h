// What a transfer changed in a tree.
#pragma once

#include <rytree_Utils.h>

#include "transfer.h"

/// Marks the nodes below `after` whose values differ from the saved list and counts them. Also counts the
/// attributes that differ from `before`, a copy of the tree from before the transfer, and lists the first
/// `change_limit` changes of either kind.
void find_changes(const RYXmlWrapperBase& before, RYXmlWrapperBase& after, CStringArray& saved,
                  int change_limit, Outcome& outcome);
