// Resetting the values of listed nodes.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// vctree_GETN_reset_hidden_values with a host array of ints; 0 too if `ids` is null or holds no int array.
RYTREE_API int rytree_GETN_reset_hidden_values(RYXmlWrapperBase* tree, HostArrayObject* ids, bool recursive);

}  // extern "C"

/// Resets the values of the children of `tree`, with `recursive` of all nodes below it, whose DataID is above
/// 0 and found in `ids`. The list is meant to be sorted ascending: a search goes from its start and gives up
/// at the first element above the DataID, so that an unsorted list finds less. What a reset does depends on
/// the node ID:
/// - 10 or 13: the value becomes 0;
/// - 0x10000000, a branch: the attribute "Use", if it reads as an int, becomes empty;
/// - any other: nothing, though the node counts.
/// The result is the number of nodes found, whether or not a reset changed them; 0 if a pointer is null.
/// Time: one pass over the list, and then a binary search for each node.
RYTREE_API int vctree_GETN_reset_hidden_values(RYXmlWrapperBase* tree, CArray<int, int>* ids, bool recursive);
