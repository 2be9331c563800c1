// Composite data ranges: building and numbering them, and the values in them.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// A composite range describes data ranges of one type. Below it is a range node for each, "Range1", "Range2"
// and so on, labelled with the host's word for a range and the number:
//
//     <Data Label="…" Data="…">                                                 node ID by type
//       <Range1 Label="Range 1" Branch="0" RepeatID="128" _ACTION_OBJECT_ID="…">  the composite's node ID
//         <X Label="X" DataID="51" _ACTION_OBJECT_ID="1004"/>                   the caller's node ID
//
//     type   node ID  action  sub-nodes: tag and DataID (label, if not the tag)   third value in
//     2      44       1001    X 51, Y 52, ED 53 (message 1625)                    "ED"
//     3      52       1002    X 51, Y 52, Z 54                                    "Z"
//     4      58       1003    X 51, Y 52, Y 52 (message 1626)                     the second "Y"
//     7      -1       1001    X 51, Y 52, ED 53 (1625), EI 56 (message 2539)      "Z", which is not made
//     other  -1       1000    X 51, Y 52                                          "Z", which is not made
//
// The DataIDs are the same in every range; the repeat numbers of the range nodes, 128, 144, 160 and so on,
// keep them apart. A range takes the repeat number of the sibling before it plus 16, or 128 if it is the
// first. If that sibling's is not a valid one (1 to 32767) it is taken over as it is: after a range without
// one, or with one of 0 or below, the next has none either, and from the 2041st range on all have 32768.
// vctree_reenum_subranges_in_range_tree numbers the ranges anew.

extern "C" {

/// Order: `out`, `parent`. Adds a composite range as the last child of `parent`, with `rangeCount` ranges
/// whose sub-nodes have the node ID 55. "ED" sub-nodes are made hidden ("Show" 0), since the new node has no
/// "InteractiveOptions"; to show them, make the node with no ranges, give it the option 0x20 and add each
/// range by vctree_add_subrange_to_composite_range.
/// - `out`: set to the composite node; may be the handle `parent`.
/// - `label`: its "Label"; null writes none. `data`: its "Data"; null or empty writes none.
/// - `rangeCount`: 0 or negative makes no ranges; above a million (far more than there are
///   repeat numbers) is refused.
///
/// 1. 0 with nothing changed and `out` untouched: a null `out` or `parent`, a count that is refused, or a
/// composite node that could not be made (null or bad tag, invalid parent, tree too deep). 0 also if a range
/// could not be made; the composite node, with `out` on it, and the ranges made before stay. Time grows with
/// the count.
RYTREE_API int rytree_create_composite_range_node(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                                  const char* tag, const char* label, int rangeCount,
                                                  int type, const char* data);

/// vctree_set_composite_subrange_values with sub-node ID 55, `combine` 0 and `reset` 1: all that the range
/// held is replaced. 0 for a null `range`.
RYTREE_API int rytree_set_composite_subrange_values(RYXmlWrapperBase* range, const char* x, const char* y,
                                                    const char* third, int type);

}  // extern "C"

/// Order: `range`, `parent`. Adds the sub-nodes of a type to a range, after those that it has, with the node
/// ID `subNodeId` (-1: none).
/// - `range`: the range node; an invalid handle is put on a new one, the last child of `parent`, with the
///   node ID `rangeId` (-1: none) and numbered by the count of children (so that a tag may come twice after a
///   removal).
/// - `parent`: needed for a new range only; may be invalid otherwise.
///
/// The range gets its repeat number and its action ID whether it is new or not. Then the int attribute
/// "InteractiveOptions" of `parent`, or of `range` if `parent` has none, takes effect, a word of options:
/// without 0x20 the first child "ED" is hidden ("Show" 0); with 0x8000 the range and all its children get
/// exactly 0x8000 as their options, and lose any other.
///
/// 1, also if a sub-node could not be made (tree too deep). 0 if neither handle is valid or the range node
/// could not be made; nothing changes then. Time does not depend on the number of ranges.
RYTREE_API int vctree_add_subrange_to_composite_range(RYXmlWrapperBase& range, RYXmlWrapperBase& parent,
                                                      int rangeId, int subNodeId, int type);

/// Numbers the children of `tree` from 1 in their order, whatever their tags: label and repeat number. With
/// `renameTags` nonzero the tags too: each child is made anew with its content under the tag "Range" and its
/// number, and handles on the old children die. Nothing happens for an invalid `tree`.
RYTREE_API void vctree_reenum_subranges_in_range_tree(RYXmlWrapperBase& tree, int renameTags);

/// Reads the texts of a range: those of its first "X", of its first "Y" and of the node with the third value
/// of the type. Type 4 takes the sibling after that "Y", and leaves `third` alone if there is none.
/// 1, or 0 at the first node that is missing, with the outputs before it filled: `x` and `y` for a type 7 or
/// any other type that makes no "Z".
RYTREE_API int vctree_get_composite_subrange_values(RYXmlWrapperBase& range, CString& x, CString& y,
                                                    CString& third, int type);

/// Adds the sub-nodes of a type to `range` and writes the texts where vctree_get_composite_subrange_values
/// reads them. A null text counts as empty. The sub-nodes are added by vctree_add_subrange_to_composite_range
/// without a parent: repeat number and action ID are set too, and only the options of `range` itself count,
/// so that "ED" is hidden unless `range` has the option 0x20, whatever its composite node has.
/// - `subNodeId`: the node ID of the sub-nodes.
/// - `combine` nonzero, type 4: the first "Y" gets `y`, a comma and `third`; the second one stays as it is.
/// - `reset` nonzero: children and text of `range` are removed first. Otherwise the new sub-nodes come after
///   the old ones, at each call, and the texts go into the old ones.
///
/// 1, or 0 at the first node that is missing, with the texts before it written, as for a type that makes no
/// "Z"; 0 for an invalid `range`.
RYTREE_API int vctree_set_composite_subrange_values(RYXmlWrapperBase& range, const char* x, const char* y,
                                                    const char* third, int subNodeId, int type, int combine,
                                                    int reset);
