// Change marks on nodes, and lists of values against which a tree, or one another, are compared.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// A node that has the attribute "OldValue" is marked as changed; the attribute holds the value before. A
// saved list has one string for each node below a start node, in pre-order: the text of a leaf, an empty
// string for a branch.
//
// To take a saved list, call VCTreeGetValues with `childrenOnly` false on a node with children and remove
// entry 0: that is the start node's own, which a saved list does not have. With it in the list every node is
// compared with the entry of the node before it.
//
// To undo by "OldValue", do so before a harvest with `changedOnly` (vctree_get_values_with_ids): it
// overwrites "OldValue" with the present value, and the value before is lost. The marks differ too.
// VCTreeUpdateChanges leaves the raw text, such a harvest the text with its decorations ("::{Auto=1}12.5"),
// and it compares with that form: a node with decorations that VCTreeUpdateChanges has marked counts as
// changed there, even where its text has come back to what it was.

extern "C" {

/// Reads or writes the change mark of a node.
/// - `set` 0: nonzero if the node is marked, else 0. Nothing changes.
/// - `set` nonzero, `oldValue` given: marks the node with it. 1.
/// - `set` nonzero, `oldValue` null: removes "OldValue" and "OldName". 1.
/// On an invalid node nothing is written and the result is the same. 0 if `node` is null.
RYTREE_API int rytree_node_changed(RYXmlWrapperBase* node, int set, const char* oldValue);

/// VCTreeUpdateChanges with a host array of strings. Its result, or -1 if `node` or `saved` is null or
/// `saved` does not hold a string array.
RYTREE_API int rytree_update_changes(RYXmlWrapperBase* node, HostArrayObject* saved);

/// VCTreeIsSame with two host arrays of ints; also 0 if either is null or does not hold an int array.
RYTREE_API int ry_is_same(HostArrayObject* first, HostArrayObject* second);

/// VCTreeGetChanged with two host arrays of strings; -1, as for no difference, also if either is null or does
/// not hold a string array.
RYTREE_API int ryget_changed(HostArrayObject* first, HostArrayObject* second, int caseSensitive);

}  // extern "C"

/// Compares every node below `node` with its string in the saved list, byte for byte, and marks it with that
/// string where they differ. Everywhere else the mark is removed, also from the nodes beyond the end of
/// the list: earlier marks do not survive. `node` itself is not looked at and has no entry in the list. The
/// number of nodes marked, 0 for an invalid node; -1 if a pointer is null.
RYTREE_API int VCTreeUpdateChanges(RYXmlWrapperBase* node, CStringArray* saved);

/// 1 if both arrays hold the same numbers in the same order or both are empty; else 0, also for a null
/// pointer.
RYTREE_API int VCTreeIsSame(CArray<int, int>* first, CArray<int, int>* second);

/// The index of the first pair of strings that differ, compared byte for byte with `caseSensitive`, else
/// without regard to case. -1 if there is none, -2 if the arrays differ in size, -1 for a null pointer.
RYTREE_API int VCTreeGetChanged(CStringArray* first, CStringArray* second, bool caseSensitive);
