// Values and attributes of many nodes at once, in the order of a walk: reading one attribute of all nodes,
// setting it, and writing texts to the leaves that have a "NodeID". Every walk is in document order; results
// are appended to what the arrays hold. A null `tree` or a null array gives -1 (false where the result is a
// bool) unless stated otherwise; an invalid node has no children.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// Appends to `values` the text of `attribute` for every node below `tree`, or with `childrenOnly` for its
/// direct children; a node without the attribute gives an empty text, `tree` itself gives none. 0.
RYTREE_API int VCTreeGetAttributes(RYXmlWrapperBase* tree, CStringArray* values, const char* attribute,
                                   bool childrenOnly);

/// The same with a host array; -1 also if `values` is null or holds no texts.
extern "C" RYTREE_API int rytree_get_attributes(RYXmlWrapperBase* tree, HostArrayObject* values,
                                                const char* attribute, int childrenOnly);

/// As VCTreeGetAttributes, but a node without the attribute gives the text of the nearest sibling before it
/// that has the attribute, and an empty text only if there is none. Texts do not carry over from one level to
/// another: each child list starts with an empty text, and after a branch goes on with what it had before.
RYTREE_API int vctree_get_attributes(RYXmlWrapperBase* tree, CStringArray* values, const char* attribute,
                                     bool childrenOnly);

/// Does one of three things on every node below `tree`, and with `includeTop` first on `tree` itself:
/// - `collected` given: appends the int `attribute` of the node, -1 where it is missing. `value` and
///   `removeIfNegative` are ignored, and the tree does not change.
/// - otherwise, with `removeIfNegative` and a negative `value`: removes `attribute`.
/// - otherwise: writes `value` as int `attribute`, also if it is -1.
/// 0; -1 for a null `tree`.
RYTREE_API int VCTreeAttributeValues(RYXmlWrapperBase* tree, const char* attribute, int value,
                                     CArray<int, int>* collected, int removeIfNegative, int includeTop);

/// The same without `tree` itself. A `collected` that holds no ints counts as null: the tree is then written
/// to, where the caller meant to read it.
extern "C" RYTREE_API int rytree_attribute_values(RYXmlWrapperBase* tree, const char* attribute, int value,
                                                  HostArrayObject* collected, int removeIfNegative);

/// Sets `attribute` (null: "Show") to the text `value` (null: the empty text) on the nodes whose
/// `matchAttribute` (null: "DataID") is one of the `ids`, compared as texts: "7" is not "07". They are looked
/// for among the children of `tree`, with `recursive` everywhere below it. An empty `matchAttribute` matches
/// nothing. Each ID is handled on its own, in order, by the rules of
/// rytree_copy_values_to_attributes_by_attribute_matching with all matches and case ignored; so
/// - the result is about the last ID alone: true if it matched a node which, with `recursive`, comes after
///   the last node that has children; false for no IDs or a null array;
/// - where `attribute` is the `matchAttribute`, an ID may match what an earlier one wrote.
/// Linear in nodes and IDs together.
RYTREE_API bool VCTreeSetAttributes(RYXmlWrapperBase* tree, const CArray<int, int>* ids, const char* value,
                                    const char* attribute, const char* matchAttribute, bool recursive);

/// The same with a host array; one that is null or holds no ints counts as no IDs.
extern "C" RYTREE_API bool rytree_set_attributes(RYXmlWrapperBase* tree, HostArrayObject* ids,
                                                 const char* value, const char* attribute,
                                                 const char* matchAttribute, bool recursive);

/// Writes values[i] as the text of every leaf below `tree` whose int attribute "NodeID" is ids[i]; of equal
/// IDs the first counts. The "NodeID" of a branch is not looked at. Linear in nodes and IDs together. The
/// number of leaves written; or, tested in this order:
///  -1   `tree` is null or invalid
///  -2   an array is empty or null
///  -3   the sizes differ
RYTREE_API int vctree_set_values_by_nodeids(RYXmlWrapperBase* tree, CArray<int, int>* ids,
                                            CStringArray* values);

/// The same with host arrays. `values` is opened first, then `ids`: -1 also if `values` is null or holds no
/// texts, whatever `ids` is, while `ids` that are null or hold no ints count as empty and give -2.
extern "C" RYTREE_API int rytree_set_values_by_nodeids(RYXmlWrapperBase* tree, HostArrayObject* ids,
                                                       HostArrayObject* values);
