// Sorting, moving and appending nodes, and what identifies a node.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Sorts the children by an int attribute, `ascending` or descending. A child whose attribute is missing or
/// not an int stays at its place, and the others are ordered around it. The order is that of an exchange sort
/// of the contents (each place against each later one, exchanged if out of order), which is not stable:
/// children of equal values come in the order in which those exchanges leave them. Contents move, places
/// stay: a handle on a child is on the same place afterwards, one on a node below a child moves with that
/// node. True if the sort ran, also if it had nothing to do because no child has the attribute; false for a
/// null or invalid node, fewer than two children, or a null or empty attribute name. O(n log n); no content
/// moves more than twice.
RYTREE_API bool rytree_sort_children_by_int_attribute(RYXmlWrapperBase* node, const char* attribute,
                                                      int ascending);

/// Order: `target`, `source`. Appends copies of the children of `source` whose tags start with `prefix`
/// (case aside; empty: all) to `target`, which may be the same node. If children of `target` with that prefix
/// have node IDs of 0 or more, the copies are numbered on from the highest of these; otherwise they keep
/// their own IDs. A copy that would be too deep is left out, and its number is not used again.
///
/// The next node ID, or 0 if no such child of `target` has an ID. Numbering ends with 2147483647: the copies
/// after it keep their own IDs, and the result is then -2147483648, which is not a failure. 0, and nothing
/// changes, for a null pointer (`prefix` too) and for an invalid `target`. An invalid `source` has no
/// children.
RYTREE_API int rytree_append_children(RYXmlWrapperBase* target, RYXmlWrapperBase* source, const char* prefix);

/// Moves node number `from` to the place of node number `to`, the target, in the numbering of
/// rytree_get_node_ex with these `flags` and `attribute`; both are counted before the move. To move among the
/// direct children alone, give kNodeLimitLevel: without it number 1 may be a grandchild. On a move up
/// (`from` > `to`) the node ends just before the target, otherwise just after it, always at the target's
/// level. A negative `to` makes it the last child of `tree`. The node is made anew, also with `from` equal to
/// `to`: handles on it and below it are dead afterwards. 1 if moved; 0 with nothing changed if a number has
/// no node (a negative `from` has none), `tree` is null or invalid, the target is inside the branch to be
/// moved, or the branch would become too deep.
RYTREE_API int rytree_move_node(RYXmlWrapperBase* tree, int from, int to, int flags, const char* attribute);

/// 1 if the node ID (0 for a node without one) is at least `first` and at most `last` + `extra`. 0 otherwise,
/// and for a null or invalid node, `first` above `last`, or one of these two negative.
RYTREE_API int rytree_is_in_ids_range(RYXmlWrapperBase* node, int first, int last, int extra);

}  // extern "C"

/// Changes the tag, by way of the node's XML text: time is linear in the branch, and handles below the node
/// are dead afterwards. White space at the end of `name` is dropped. True if the node has that tag now, which
/// includes the tag that it had before. False with the node unchanged if it is a leaf without text, whose XML
/// text is one self-closed element; if `name` is not a valid tag otherwise; if the default code page lacks a
/// character of the branch; or for a null pointer or an invalid node.
[[nodiscard]] RYTREE_API bool VCTreeSetTagName(RYXmlWrapperBase* node, const char* name);

/// Stamps a branch for a menu, `node` included: every node with children gets the node ID 0x10000000; every
/// leaf without a positive DataID gets the node ID 11 and the next DataID, in pre-order; every other leaf is
/// left alone. `nextDataId`: in, the first DataID to give; out, one above the last. It is not tested: begin
/// above 0, and above the DataIDs that the branch has. The number of leaves that got one, 0 for a null or
/// invalid node.
RYTREE_API int VCTreePrepareForMenu(RYXmlWrapperBase* node, DWORD& nextDataId);
