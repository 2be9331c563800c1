// Where a node is in its tree: its row, its level, its path of tags; its label and the tags below it. A path
// is the tags from the outermost one down, joined by one full stop.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// The row of the node at the end of a path, in a list that shows every node in pre-order with `node` in row
/// 1. The first name of the path is the tag of `node`, each further one that of a child. Names are compared
/// without regard to case; what is in double quotes is not split and keeps its quotes. Of several children
/// with the name the first one counts: nothing below the others can be reached. -1 if a name does not match,
/// if the path is empty, and for a null or invalid argument. The time grows with the row.
RYTREE_API int rytree_get_row_number(RYXmlWrapperBase* node, const char* path);

/// Order: `node`, `root`. How many levels `node` is below `root`, or below the top of the tree if `root` is
/// null; 0 for `root` or the top itself. `path` becomes the path from there to `node`. Full stops at its end
/// are taken off, also those of a tag that ends in one.
///
/// With `stopAtEventRoot` (no effect if `root` is null) the walk upward from `node` reads the int attribute
/// "EventRootOption" of each node that it comes to:
/// - above 0: the level is counted from this node, and `root` is put on it.
/// - 0 or none: the walk stops here if this is `root`.
/// - -1: the call fails.
/// - below -1: the walk goes on, even if this is `root`.
///
/// -1 with `path` and `root` untouched: the call failed at such a node, or `root` is not null and neither it
/// nor an event root was met, or `path` or `node` is null. An invalid `node` with a null `root` gives -1 and
/// an empty `path`. `node` and `root` may be the same handle.
RYTREE_API int rytree_get_level(CString* path, RYXmlWrapperBase* node, RYXmlWrapperBase* root,
                                int stopAtEventRoot);

/// Writes each node's path into its attribute of that name, over what it held: with `includeSelf` into
/// `node`, whose tag then begins every path; with `recursive` into all nodes below. With neither nothing is
/// written. 1, also if a node refuses the attribute; 0 if `node` is null or invalid or `attribute` null or
/// empty.
RYTREE_API int rytree_add_path_str(RYXmlWrapperBase* node, const char* attribute, int recursive,
                                   int includeSelf);

RYTREE_CLASS_RESULTS
/// The tag of a node, or with `useLabel` its "Label", also an empty one, if it has that attribute. Empty for
/// a null or invalid node.
RYTREE_API CString rytree_get_node_label(RYXmlWrapperBase* node, bool useLabel);
RYTREE_CLASS_RESULTS_END

/// vctree_get_node_names into a host array of strings. 1, also for an invalid node, which adds nothing; -1 if
/// `node` or `names` is null or `names` holds no string array.
RYTREE_API int rytree_get_node_names(RYXmlWrapperBase* node, HostArrayObject* names, int topLevelOnly);
}

/// Sets `path` to the path from the top of the tree to `node`. True, or false with `path` emptied if `node`
/// is null or invalid.
RYTREE_API bool VCTreeGetPathStr(CString& path, RYXmlWrapperBase* node);

/// Appends to `names` the tags of the children of `node`, with `topLevelOnly` false those of all nodes below
/// in pre-order. Nothing happens for a null pointer or an invalid node.
RYTREE_API void vctree_get_node_names(RYXmlWrapperBase* node, CStringArray* names, bool topLevelOnly);
