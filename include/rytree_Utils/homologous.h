// Copies between two trees whose nodes correspond by their place, by the equal text of an attribute, or by
// their tag. The two nodes may lie in one tree. A null pointer gives 0 unless stated otherwise; an invalid
// node has no attributes and no children.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// Order: `dest`, `source`. Copies the texts of the leaves from `source` to the node at the same place in
/// `dest`: the start nodes, what is below them, and also the siblings that follow the start nodes, up to the
/// last. To copy one branch out of a row of them, start on detached copies (Clone) or on the parents; started
/// on the branch itself the copy overwrites what comes after it. Texts of branches are not copied.
/// The walk stops at the first difference in shape; what was copied before it stays.
/// - `copyAttributes`: nonzero copies all attributes of each node too; those that only `dest` has stay.
/// - `keep` (may be null): with `copyAttributes`, the names of attributes that are not to change in `dest`. A
///   node gets back those it had with a text, but only after everything below it has been copied: the nodes
///   above a difference in shape are left with the attributes of `source`. An attribute that was missing or
///   empty becomes that of `source`. A name that no attribute can have is ignored.
/// 0 if the shapes are the same, or both nodes are invalid; 1 if they differ, or just one node is invalid.
/// The cost is the size of the smaller tree times the number of names kept.
RYTREE_API int vctree_copy_values_between_homologous_trees(RYXmlWrapperBase& dest, RYXmlWrapperBase& source,
                                                           int copyAttributes, CStringArray* keep);

/// The same without names to keep; -1 for a null pointer.
extern "C" RYTREE_API int rytree_copy_values_between_homologous_trees(RYXmlWrapperBase* dest,
                                                                      RYXmlWrapperBase* source,
                                                                      int copyAttributes);

/// Order: `dest`, `source`. Sets the int attribute "Branch" of `dest` to that of `source`, less the bits
/// that are not in the low 32 bits of `mask`. It is replaced, not merged: no former bit of `dest` survives,
/// and a mask of 0 writes 0. Nonzero if it was written; 0 if `source` has no such attribute or a node is
/// null or invalid.
RYTREE_API int vctree_copy_branch_options(RYXmlWrapperBase* dest, RYXmlWrapperBase* source,
                                          unsigned long mask);

extern "C" {

/// Order: `source`, `target`. Writes the text of each leaf of `source` to an attribute of the nodes of
/// `target` that match it. A leaf and a node match if both have `matchAttribute` and the two texts are
/// equal; "7" is not "07". They are compared up to a NUL, if they hold one.
/// - `attribute`: what is written. Null: "Show".
/// - `matchAttribute`: null means "DataID"; an empty name matches nothing.
/// - `extraAttribute` (may be null): an attribute to copy as well, written after `attribute`. A leaf without
///   it passes on that of the nearest leaf before it in the same child list that took part and had it, or the
///   empty text if there is none.
/// - `recursive`: nonzero takes the whole of both branches, 0 the direct children of both. A node of
///   `source` with children is itself never a leaf, and with 0 it is passed over.
/// - `all`: nonzero writes to every match, 0 to the first in pre-order. The walk over `source` goes on either
///   way.
/// - `caseSensitive`: 0 compares without regard to case.
///
/// The result is neither a count nor true for any match. It is that of the last leaf, or branch with
/// `recursive`, in the child list of `source`: a branch gives the result of its own child list, 0 for one
/// without leaves that take part. A leaf gives 1 if it has a match, but with `all` and `recursive` a later
/// branch of `target` replaces what came before it: then only matches after the last node of `target` that
/// has children count, though all are written.
///
/// If `matchAttribute` is `attribute` or `extraAttribute` as well, later leaves are compared with the new
/// text. Linear in both trees together.
RYTREE_API int rytree_copy_values_to_attributes_by_attribute_matching(
    RYXmlWrapperBase* source, RYXmlWrapperBase* target, const char* attribute, const char* matchAttribute,
    const char* extraAttribute, int recursive, int all, int caseSensitive);

/// Order: `source`, `dest`. Copies one attribute. 1 if `source` has it, even if `dest` is invalid and
/// nothing is written; 0 if `source` lacks it.
RYTREE_API int rytree_node_copy_attribute(RYXmlWrapperBase* source, RYXmlWrapperBase* dest,
                                          const char* attribute);

/// Order: `source`, `dest`. Copies one attribute from each node of a branch to the node at the same place in
/// the other, but with `skipTop` not from `source` to `dest` themselves. Children pair up by position as far
/// as the shorter child list goes; the shapes may differ. The number of attributes copied, one of `source`
/// counting even if `dest` is invalid.
RYTREE_API int rytree_copy_atts(RYXmlWrapperBase* source, RYXmlWrapperBase* dest, const char* attribute,
                                int skipTop);

/// Order: `source`, `dest`. Gives DataIDs to nodes by tag. For each node below `source`, in pre-order, the
/// first node with its tag, ignoring case, gets its DataID: `dest` itself, then those below it in pre-order.
/// A node of `source` without DataID gives -1. Nodes of one tag all go to the same node, which ends with the
/// DataID of the last, and each counts. With `leavesOnly` nodes with children neither give nor get one, but
/// are searched below. The number of DataIDs given. Linear in the two trees.
RYTREE_API int rytree_copy_ids_by_tagname(RYXmlWrapperBase* source, RYXmlWrapperBase* dest, bool leavesOnly);

}  // extern "C"
