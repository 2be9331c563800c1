// Finding nodes by several attributes at once, the help and localization nodes, and counting by an attribute.
// Nothing here changes a tree.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Whether `node` has every attribute of `names` with the text of the same index in `values`, compared byte
/// for byte or, with `ignoreCase`, without regard to case. 1: all match; two empty arrays match any node, an
/// invalid one too. 0: one is missing or differs, the arrays differ in size, or a pointer is null. -1: an
/// object holds no string array.
RYTREE_API int rytree_check_node_str_attr(RYXmlWrapperBase* node, HostArrayObject* names,
                                          HostArrayObject* values, int ignoreCase);

/// The same for int attributes; `values` is an int array. An attribute that is no int counts as missing.
RYTREE_API int rytree_check_node_int_attr(RYXmlWrapperBase* node, HostArrayObject* names,
                                          HostArrayObject* values);

/// Finds a node below `parent` by rytree_check_node_str_attr with case. Its -1 counts as a match: with an
/// object that holds no such array every node matches. `index` counts the matches among the children of one
/// node, from 0. With `recursive` what is below a child, also below a match that was not the one asked for,
/// is searched before the next child, with what the matches so far on the child's level, the child included,
/// leave of the index. Matches inside a branch are not carried back: they do not lower the index for the
/// siblings behind it. So with A, C and, below A, B that match, index 1 finds B and index 2 nothing.
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

/// Finds a help node of `tree` by its DataID. A `repeatId` outside 256 to 1024 is replaced by the host's
/// default number. With `repeatId` 256 the IDs 440 and 448 stand for the direct children 310 and 391. The IDs
/// 305, 430, 442 and 446 are direct children for every `repeatId`. Any other is a direct child of the first
/// node with the DataID 420 and that repeat number; if there is none `found` is made invalid, where it is
/// otherwise left alone. 1 and `found` set, or 0, also for a null pointer.
RYTREE_API int rytree_get_help_node(RYXmlWrapperBase* found, RYXmlWrapperBase* tree, int id, int repeatId);

/// Finds a localization node of `tree`: the node with the DataID `id` that is a direct child of the first one
/// with the DataID `parentId` and the repeat number `repeatId` (0 or less: the host's default number); with
/// `parentId` 0 the first node of that `id` anywhere. If there is none, and none for `id` 0, or with
/// `checkEmpty` its text is empty or white space, the direct child with the DataID `fallbackId` is the answer
/// instead. 1 and `found` set. 0 if there is no fallback either: `found` is then invalid, or on the node
/// without text. 0 and nothing changed if a pointer is null.
RYTREE_API int rytree_get_localization_node(RYXmlWrapperBase* found, RYXmlWrapperBase* tree, int id,
                                            int fallbackId, int parentId, int checkEmpty, int repeatId);

/// Counts children of `node`, with `recursive` all nodes below it; `node` itself never counts. A node counts
/// if `attribute` is null; if it lacks the attribute, only with `countMissing`; if it has it, when `value` is
/// null or exactly its text. The count, or -1 for a null or invalid node.
RYTREE_API int rytree_count_items_by_attribute(RYXmlWrapperBase* node, const char* attribute,
                                               const char* value, int countMissing, int recursive);
}
