// Editing many nodes of a branch in one call: removing nodes, changing attributes and values. Unless its
// comment says otherwise, a call works on what is below the node that it is given. An invalid node has
// nothing below it and gives 0, as do null pointers. No node has an attribute whose name is not a valid one,
// and none gets it. Time is linear in the nodes looked at.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Removes the children that lack an attribute. A misspelt name, or an empty one, is lacked by all of them;
/// a null one removes nothing. A child with children is left alone with `recursive` 0. Otherwise the same is
/// done below it first; if that leaves nothing and `keepBranches` is 0, it is then judged like a leaf. With
/// `removeAttribute` a child that is judged and has the attribute loses the attribute. The number of nodes
/// removed, at all levels.
RYTREE_API int rytree_delete_nodes_by_missing_attribute(RYXmlWrapperBase* parent, const char* attribute,
                                                        int recursive, int removeAttribute, int keepBranches);

/// Removes the children whose int attribute is `value`, each with its branch; with `recursive` also below
/// those that stay. A direct child of `parent` that has the attribute `exemptAttribute` (may be null) stays;
/// with `recursive` what is below it is searched all the same, and there is no exemption there. The number of
/// removals, in which a node inside a removed branch does not count, or the first negative status that one of
/// them gave; the others are made all the same.
RYTREE_API int rytree_delete_nodes_by_attribute(RYXmlWrapperBase* parent, const char* attribute, int value,
                                                int recursive, const char* exemptAttribute);

/// Removes the children that are leaves without text, whatever their attributes; with `recursive` all such
/// leaves below, and the branches that have nothing else below them, even if they have a text of their own.
/// The number of direct children left, with `recursive` that of leaves left in the whole branch. 0: `parent`
/// has no children now.
RYTREE_API int rytree_remove_empty_child_nodes(RYXmlWrapperBase* parent, bool recursive);

/// Removes every node below whose int attribute is `value`, with its branch. The number of removals, in which
/// a node inside a removed branch does not count; -1 for a null or invalid node, 0 for a null name.
RYTREE_API int rytree_remove_nodes_by_attribute(RYXmlWrapperBase* node, const char* attribute, int value);

/// Sets a text attribute (null: the empty text) on the node and all below it, or with `childrenOnly` on its
/// direct children and not on the node. With `branchesOnly` only on nodes that have children.
RYTREE_API void rytree_set_attribute_to_all_nodes(RYXmlWrapperBase* node, const char* attribute,
                                                  const char* value, bool childrenOnly, bool branchesOnly);

/// Hides the leaves without text ("Show" 0) among the children, with `recursive` in the whole branch. With
/// `removeShow` the other leaves lose "Show". Branches are never touched. The number of leaves hidden.
RYTREE_API int rytree_hide_empty_nodes(RYXmlWrapperBase* node, bool recursive, bool removeShow);

/// Sets bits in an int attribute of `node`, if it has the attribute and a child, with `recursive` any node
/// below, is a leaf with text. 1 if so, even if the bits were set already; else 0. The attribute is never
/// made.
RYTREE_API int rytree_set_attribute_bit_if_not_empty(RYXmlWrapperBase* node, const char* attribute, int bits,
                                                     bool recursive);

/// Removes an attribute from all nodes below and, with `includeSelf`, from `node`. The number of nodes that
/// lost it.
RYTREE_API int rytree_remove_attribute(RYXmlWrapperBase* node, const char* attribute, int includeSelf);

/// Empties the text of every leaf below. Texts of branches and of `node`, and all attributes, stay.
RYTREE_API void rytree_clear_all_value(RYXmlWrapperBase* node);

}  // extern "C"

/// Changes bits of an int attribute, taken as a 32-bit word: sets `setBits`, then clears `clearBits`, so that
/// a bit in both ends up clear. The two come in the other order as arguments. An attribute that is missing or
/// not an int counts as 0, and is written only if `setBits` is not 0. A word with the highest bit set is
/// written as a negative number.
RYTREE_API void vctree_modify_DWORD_attribute(RYXmlWrapperBase& node, const char* attribute, DWORD clearBits,
                                              DWORD setBits);
