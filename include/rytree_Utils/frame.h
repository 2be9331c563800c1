// Code page, values of a branch as a flat list, and the switch of the localization.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Tells the node class which encoding the narrow strings are in. The result is that of
/// RYXmlWrapperBase::SetDefaultCodePage: nonzero on success, 0 for an unknown page, which changes nothing.
RYTREE_API int rytree_set_default_code_page(int page);

/// VCTreeGetValues into a host array of strings. Its result, or -1 if `tree` or `values` is null or `values`
/// holds no string array; the node is then not looked at.
RYTREE_API int rytree_get_values(RYXmlWrapperBase* tree, HostArrayObject* values, int childrenOnly);
}

/// Appends the values of a branch to `values`, which is never emptied.
/// - A leaf, and an invalid node too, gives one entry, its text.
/// - A branch gives an empty entry for itself, whatever its text. With `childrenOnly` false its descendants
///   follow in pre-order, each with a leaf's text or a branch's empty entry; with `childrenOnly` true the
///   texts of its direct children, also of those that have children themselves.
///
/// 0, or -1 if a pointer is null.
RYTREE_API int VCTreeGetValues(RYXmlWrapperBase* tree, CStringArray* values, bool childrenOnly);

/// Appends the text of each direct child, even if it is empty, to `values`, which is never emptied.
RYTREE_API void vctree_get_all_children_values_as_string_array(RYXmlWrapperBase& node, CStringArray& values);

/// Reads or sets the flag that blocks the localization of labels; while it is true they stay in their source
/// text. One flag for the process, false at the start. `get` true stores it in `value`, `get` false sets it
/// from there; a null `value` does neither. The result is the flag after the call.
RYTREE_API bool VCTreeAccessBlockLocalization(bool* value, bool get);
