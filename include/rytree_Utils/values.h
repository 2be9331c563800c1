// The value of a node, and the values of a branch as a flat list.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// VCTreeGetValues into a host array of strings. Its result, or -1 if `tree` or `values` is null or `values`
/// holds no string array; the node is then not looked at.
RYTREE_API int rytree_get_values(RYXmlWrapperBase* tree, HostArrayObject* values, int childrenOnly);

}  // extern "C"

/// Appends the values of a branch to `values`, which is never emptied.
/// - A leaf, and an invalid node too, gives one entry, its text.
/// - A branch gives an empty entry for itself, whatever its text. With `childrenOnly` false its descendants
///   follow in pre-order, each with a leaf's text or a branch's empty entry; with `childrenOnly` true the
///   texts of its direct children, also of those that have children themselves.
///
/// The saved list of VCTreeUpdateChanges is this, with `childrenOnly` false, less the entry of `tree` itself.
/// 0, or -1 if a pointer is null.
RYTREE_API int VCTreeGetValues(RYXmlWrapperBase* tree, CStringArray* values, bool childrenOnly);

/// Appends the text of each direct child, even if it is empty, to `values`, which is never emptied.
RYTREE_API void vctree_get_all_children_values_as_string_array(RYXmlWrapperBase& node, CStringArray& values);

/// Sets `value` to the value of a node as these lists hold it: the text of a leaf, empty for a branch and
/// for an invalid node.
RYTREE_API void VCTreeNodeGetValue(RYXmlWrapperBase& node, CString& value);
