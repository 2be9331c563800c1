// Finding nodes by several attributes at once, the help and localization nodes, and counting by an attribute.
// Nothing here changes a tree.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Whether `node` has every attribute of `names` with the text of the same index in `values`, compared byte
/// for byte or, with `ignoreCase`, without regard to case.
/// -  1: all match. Two empty arrays match any node, an invalid one too.
/// -  0: one is missing or differs, the arrays differ in size, or a pointer is null.
/// - -1: an object holds no string array.
RYTREE_API int rytree_check_node_str_attr(RYXmlWrapperBase* node, HostArrayObject* names,
                                          HostArrayObject* values, int ignoreCase);

/// The same for int attributes; `values` is an int array. An attribute that is not an int counts as missing.
RYTREE_API int rytree_check_node_int_attr(RYXmlWrapperBase* node, HostArrayObject* names,
                                          HostArrayObject* values);

/// Order: `parent`, `found`. Finds a node below `parent` by rytree_check_node_str_attr with case. Its -1
/// counts as a match: if an object holds no such array, every node matches. `index` is the number of the
/// match wanted, from 0, among the children of one node. With `recursive` everything below a child, also
/// below a match with a smaller number, is searched before the next child. That search starts with the index
/// that is left once the matches up to and including this child are taken off. Matches inside a branch are
/// not carried back: the siblings after the branch are searched as if it held none. Say A and C match and so
/// does B below A:
///     <Parent><A><B/></A><C/></Parent>        index 0 finds A, index 1 finds B, index 2 finds nothing
///
/// 1 and `found` set unless it is null; 0 and `found` untouched if there is none, if `index` is negative, or
/// if `parent`, `names` or `values` is null.
RYTREE_API int rytree_find_node_with_str_attr(RYXmlWrapperBase* parent, RYXmlWrapperBase* found,
                                              HostArrayObject* names, HostArrayObject* values, int recursive,
                                              int index);

/// The same by rytree_check_node_int_attr.
RYTREE_API int rytree_find_node_with_int_attr(RYXmlWrapperBase* parent, RYXmlWrapperBase* found,
                                              HostArrayObject* names, HostArrayObject* values, int recursive,
                                              int index);

/// Order: `found`, `tree`. Finds a help node of `tree` by its help ID. A `repeatId` outside 256 to 1024 is
/// replaced by the host's default number. The first line that applies tells where the node is looked for:
/// - 440 and 448 with `repeatId` 256: the direct child with the DataID 310 or 391.
/// - 305, 430, 442, 446: the direct child with that DataID.
/// - other: the node with that DataID that is a direct child of the first node with the DataID 420 and that
///   repeat number.
///
/// 1 and `found` set, or 0, also for a null pointer. On failure a direct child that is missing leaves `found`
/// alone; any other makes it invalid.
RYTREE_API int rytree_get_help_node(RYXmlWrapperBase* found, RYXmlWrapperBase* tree, int id, int repeatId);

/// Order: `found`, `tree`. Finds a localization node of `tree`: the node with the DataID `id` that is a
/// direct child of the first one with the DataID `parentId` and the repeat number `repeatId` (0 or less: the
/// host's default number); with `parentId` 0 the first node of that `id` anywhere; for `id` 0 none. If there
/// is none, or if with `checkEmpty` its text is empty or white space, the direct child with the DataID
/// `fallbackId` is the answer instead. 1 and `found` set. 0 if there is no fallback either: `found` is then
/// invalid, or on the node without text. 0 and nothing changed if a pointer is null.
RYTREE_API int rytree_get_localization_node(RYXmlWrapperBase* found, RYXmlWrapperBase* tree, int id,
                                            int fallbackId, int parentId, int checkEmpty, int repeatId);

/// Counts the children of `node`, with `recursive` all nodes below it; `node` itself never counts. Every node
/// counts if `attribute` is null. Otherwise a node that has the attribute counts if `value` is null or
/// equals its text, and one that lacks it counts with `countMissing`. The count, or -1 for a null or invalid
/// node.
RYTREE_API int rytree_count_items_by_attribute(RYXmlWrapperBase* node, const char* attribute,
                                               const char* value, int countMissing, int recursive);
}
