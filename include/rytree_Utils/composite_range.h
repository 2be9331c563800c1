// Composite data ranges: building and numbering them, the values in them; and branches of input data.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// A composite range describes data ranges of one type. Below it stands a range node for each, "Range1",
// "Range2" and so on, labelled with the host's word for a range and the number:
//
//     <Data Label="…" Data="…">                                                 node ID by type
//       <Range1 Label="Range 1" Branch="0" RepeatID="128" _ACTION_OBJECT_ID="…">  the composite's node ID
//         <X Label="X" DataID="51" _ACTION_OBJECT_ID="1004"/>                   the caller's node ID
//
//     type   node ID  action  sub-nodes: tag and DataID (label, if not the tag)   third value in
//     2      44       1001    X 51, Y 52, ED 53 (message 1625)                    "ED"
//     3      52       1002    X 51, Y 52, Z 54                                    "Z"
//     4      58       1003    X 51, Y 52, Y 52 (message 1626)                     the second "Y"
//     7      -1       1001    X 51, Y 52, ED 53 (1625), EI 56 (message 2539)      "Z", which is not there
//     other  -1       1000    X 51, Y 52                                          "Z", which is not there
//
// The DataIDs are the same in every range; the repeat numbers of the range nodes, 128, 144, 160 and so on,
// keep them apart. A range takes the repeat number of the sibling before it plus 16, 128 if it is the first.
// Where that sibling's is no valid one (1 to 32767) it is taken over as it is: without one the range is left
// without one too, and from the 2041st range on all have 32768.

extern "C" {

/// Adds a composite range as the last child of `parent`, with `rangeCount` ranges whose sub-nodes have the
/// node ID 55.
/// - `out`: set to the composite node; may be the handle `parent`.
/// - `label`: its "Label"; null writes none. `data`: its "Data"; null or empty writes none.
/// - `rangeCount`: 0 or negative makes no ranges; above a million (hundreds of times what repeat numbers can
///   tell apart) is refused.
///
/// 1, or 0: a null `out` or `parent`, a count that is refused or a node that could not be made (null or bad
/// tag, invalid parent, tree too deep). Ranges made before a failure stay. Time grows with the count.
RYTREE_API int rytree_create_composite_range_node(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                                  const char* tag, const char* label, int rangeCount,
                                                  int type, const char* data);

/// vctree_set_composite_subrange_values with sub-node ID 55, `combine` 0 and `reset` 1. 0 for a null `range`.
RYTREE_API int rytree_set_composite_subrange_values(RYXmlWrapperBase* range, const char* x, const char* y,
                                                    const char* third, int type);

/// VCTreeCheckAddInputDataBranch with host arrays of strings. True, with nothing done, if either is null or
/// holds no string array.
RYTREE_API bool rytree_tree_check_add_input_data_branch(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                                        HostArrayObject* tags, HostArrayObject* labels,
                                                        int id, int rangeNumber, int valueIndex,
                                                        const char* value);

/// Makes `node` a date node: node ID 14, "NumFormat" "D9" and the number as its value. Nonzero, or 0 if
/// `node` is null or invalid.
RYTREE_API int rytree_set_date_node(RYXmlWrapperBase* node, double value);
}

/// Adds the sub-nodes of a type to a range, behind those that it has, with the node ID `subNodeId` (-1:
/// none).
/// - `range`: the range node; an invalid handle is put on a new one, the last child of `parent`, with the
/// node
///   ID `rangeId` and numbered by the count of children (so that a tag may come twice after a removal).
/// - `parent`: needed for a new range only; may be invalid otherwise.
///
/// The range gets its repeat number and its action ID whether it is new or not. Then the option bits in the
/// int attribute "InteractiveOptions" count, those of `parent` or, if it has none, of `range`: without bit 32
/// the first child "ED" is hidden ("Show" 0); with bit 0x8000 the range and all its children get the options
/// 0x8000 and no other bit.
/// 1, also if a sub-node could not be made (tree too deep). 0 if neither handle is valid or the range node
/// could not be made; nothing changes then. Time does not depend on the number of ranges.
RYTREE_API int vctree_add_subrange_to_composite_range(RYXmlWrapperBase& range, RYXmlWrapperBase& parent,
                                                      int rangeId, int subNodeId, int type);

/// Numbers the children of `tree` from 1 in their order, whatever their tags: label and repeat number. With
/// `renameTags` nonzero the tags too: each child is made anew with its content under the tag "Range" and its
/// number, and handles on the old children die.
RYTREE_API void vctree_reenum_subranges_in_range_tree(RYXmlWrapperBase& tree, int renameTags);

/// Reads the texts of a range: of its first "X", its first "Y" and where the third value of the type is. Type
/// 4 takes the sibling behind the "Y", and if there is none leaves `third` alone.
/// 1, or 0 at the first node that is missing, with the outputs before it filled; types that have no third
/// value always end so.
RYTREE_API int vctree_get_composite_subrange_values(RYXmlWrapperBase& range, CString& x, CString& y,
                                                    CString& third, int type);

/// Adds the sub-nodes of a type to `range` (vctree_add_subrange_to_composite_range, so that its repeat number
/// and action ID are set too) and writes the texts where vctree_get_composite_subrange_values reads them. A
/// null text is the empty one.
/// - `subNodeId`: the node ID of the sub-nodes.
/// - `combine` nonzero, type 4: the first "Y" gets `y`, a comma and `third`; the second one stays as it is.
/// - `reset` nonzero: children and text of `range` are removed first. Without, the new sub-nodes stand behind
///   the old ones, and the texts go into the old ones.
///
/// 1, or 0 at the first node that is missing, with the texts before it written; 0 for an invalid `range`.
RYTREE_API int vctree_set_composite_subrange_values(RYXmlWrapperBase& range, const char* x, const char* y,
                                                    const char* third, int subNodeId, int type, int combine,
                                                    int reset);

/// Sets the action ID of `range` and, if `subActionId` is above 0, of all its direct children. 1, or 0 for an
/// invalid `range`.
RYTREE_API int VCTreeSetCompositeSubRangeNodeActionId(RYXmlWrapperBase& range, int rangeActionId,
                                                      int subActionId);

/// Reads (`get` nonzero) or writes (0) the action ID of a node, the int attribute "_ACTION_OBJECT_ID".
/// Nonzero, or 0 if the node is invalid or has none; `id` is then untouched.
RYTREE_API int vctree_get_set_node_action_id(RYXmlWrapperBase& node, int& id, int get);

/// Finds or makes a child for each tag, with node ID 35 when made, its label and perhaps a value.
/// - `out`: set to the node that holds the children; may be the handle `parent`. With `rangeNumber` above 0
///   that is the child of `parent` tagged "Range" and the number, labelled like a range, found or made with
///   node ID `id` (0: none), else `parent` itself.
/// - `labels`: one for each tag; a missing or empty one leaves the child's label as it is.
/// - `value`: the text for the child at `valueIndex`, or for all if that is negative; null writes none.
///
/// Called again it finds what it made. What could not be made is passed over in silence. Always true, with
/// nothing done if `out`, `parent` or an array is null. Time: one pass over the children and one over the
/// tags.
RYTREE_API bool VCTreeCheckAddInputDataBranch(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                              const CStringArray* tags, const CStringArray* labels, int id,
                                              int rangeNumber, int valueIndex, const char* value);
