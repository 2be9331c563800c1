// Lookups in theme trees, by the low 16 bits of an ID: what a repeat number adds to an ID above them plays no
// part. They change no tree. All results are 1 or 0; a null pointer gives 0.
#pragma once

#include <rytree_host/node.h>

extern "C" {

/// Order: `out`, `tree`. Finds the first node below `tree`, in pre-order, whose node ID or whose DataID has
/// the low 16 bits `id`. `id` itself is not cut: one outside 0 to 0xFFFF finds nothing. A node has no match
/// in an ID that it lacks.
/// - `recursive`: whether to look below the direct children.
/// - `depth`: below 0 nothing is searched. With `recursive` each child that has children uses up one, for
///   itself and for good: it is searched below with what is then left, and its later siblings start from
///   there. The direct children of `tree` are searched in full also when the depth is used up.
/// 1 and `out` set, or 0 and `out` untouched.
RYTREE_API int rytree_theme_tree_get_node_by_id(RYXmlWrapperBase* out, RYXmlWrapperBase* tree, int id,
                                                int depth, bool recursive);

/// Order: `out`, `tree`. Finds that node and moves `out` on to its child number `index`, counted from 1. 0
/// if the index is below 1 or no node was found, `out` untouched; 0 also if the node has fewer children,
/// `out` then being on the node.
RYTREE_API int rytree_theme_tree_get_node_by_index(RYXmlWrapperBase* out, RYXmlWrapperBase* tree, int id,
                                                   int index, int depth, bool recursive);

/// Reads the rectangle in the direct children "Left", "Right", "Top" and "Bottom" of `style`, whatever their
/// case. A number that cannot be read leaves its variable alone; what was read stays also when the result is
/// 0. 1 if exactly four numbers were read: a tag that is there twice counts twice, its last number holding,
/// so that four readings may leave a variable untouched. With a null pointer nothing is read.
RYTREE_API int rytree_theme_tree_get_range_from_range_style(RYXmlWrapperBase* style, int* left, int* top,
                                                            int* right, int* bottom);

}  // extern "C"
