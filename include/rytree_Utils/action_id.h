// The action ID of a node, the int attribute "_ACTION_OBJECT_ID".
#pragma once

#include <rytree_host/node.h>

/// Reads (`get` nonzero) or writes (0) the action ID of a node. Nonzero, or 0 if the node is invalid or, on
/// reading, has none that is an int; `id` is then untouched.
RYTREE_API int vctree_get_set_node_action_id(RYXmlWrapperBase& node, int& id, int get);

/// Sets the action ID of `range` and, if `subActionId` is above 0, of all its direct children, whatever their
/// tags. 1, or 0 for an invalid `range`.
RYTREE_API int VCTreeSetCompositeSubRangeNodeActionId(RYXmlWrapperBase& range, int rangeActionId,
                                                      int subActionId);
