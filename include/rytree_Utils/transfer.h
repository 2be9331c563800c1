// Value transfer by ID: reading the values of a tree into flat arrays, writing such arrays into a tree whose
// nodes have the same IDs, and both in one call from tree to tree.
//
// IDs. The ID of a node is an int attribute, "DataID" unless the caller names another; a node without it has
// ID -1. A branch that occurs several times in a tree has a "RepeatID" from 1 to 32766; any number outside 1
// to 32767 counts as none. On the way down the RepeatIDs of nested branches are OR-ed together to the repeat
// number in force. Below such a branch the ID of a node that has no RepeatID itself is composed: the repeat
// number in force in the high 16 bits, the plain ID in the low 16. DataID 7 below RepeatID 2 is 0x20007.
// The repeated branches themselves keep their plain ID. Two of them that have an ID and a value give that ID
// twice, and a copy then fails with a duplicate; without a value it does not, as long as `allBranches` is 0.
//
// Leaves and branches. The value of a leaf is its text. A branch has no text value; its value is the
// attribute "Use", or "Data" where bit 20 of "ThemeApplicability" is set.
//
// Decorations. The attributes "Auto" and "DynaUseChck" of a node, where it has them, are put in front of its
// value:
//     "::{Auto=1|Auto|1}::{DynaUseChck=1}12.5"
//
// "ThemeApplicability", an int attribute. Reading looks only at bit 20 of a branch's own attribute; writing
// obeys the nearest attribute on the node or above it, but not on the start node or above that:
//     bit 16   0x10000   write   the value is not stored
//     bit 17   0x20000   write   decorations are taken off the value but not written to attributes
//     bit 18   0x40000   write   the value is stored only if it holds a tag other than "<autoX>"
//     bit 20  0x100000   read    the branch is one value: "Data" holds it, and its subtree is not read
//                        write   the value of a branch goes to "Data"
#pragma once

#include <rytree_host/node.h>

/// A hook into the writing of values: it may rewrite every value stored in and below the nodes of one ID.
struct _SETVALUESBYIDS {
  /// Called before each such value is stored; its result is not used. It may throw; null is not called. It
  /// may change the tree: nodes added further on are visited, and match like any other. Where it removes the
  /// node at hand, or one above it, that node still counts, its value is dropped and the siblings that
  /// follow it are not visited.
  int (*callback)(_SETVALUESBYIDS*);
  /// The ID that activates the hook, compared with the plain ID of a node, before any composition; -1 is that
  /// of a node without one.
  int dataId;
  /// Nonzero while the walk is in or below the activating node. A copy sets it to 0 before it writes.
  int active;
  /// During the callback the value about to be stored, which it may change. Null again after
  /// it; before the first one what the caller put there.
  CString* value;
};

/// Joins the ID of a node with the repeat number in force above it, one step of the walks below. `repeatOut`
/// is written for the results 1 and 2 only, `*id` for 3 only; either may be null, and a null `id` counts as
/// no ID. An invalid node counts as one without RepeatID. `repeat` is not tested: 0 and below mean none, and
/// above 0x7FFF the ID comes out negative or without the upper bits. Changes no tree.
///   3   *id is composed: a node without RepeatID, an ID from 0 to 0xFFFF, a repeat number in force
///   2   *repeatOut is the node's RepeatID joined with the one in force
///   1   *repeatOut is the node's RepeatID; none was in force
///   0   nothing to do, also for a null node
///  -1   the ID is 0x10000 or more and cannot be composed
///  -2   the node's RepeatID shares a bit with the one in force
///  -3   the node's RepeatID is 32767
extern "C" RYTREE_API int rytree_combine_treenode_id_with_repeat_id(RYXmlWrapperBase* node, int* id,
                                                                    int* repeatOut, int repeat);

/// Reads the values below `node` into parallel arrays, one entry for each node with an ID, in pre-order.
/// `node` itself is not read. A leaf needs an ID of 0 or more, a branch any ID but -1. Linear in the nodes.
/// - `ids`, `values`: emptied, then filled. Null `values` empties `ids` and reads nothing.
/// - `recursive`: nonzero for the whole branch, 0 for the direct children, branches among them too.
/// - `changedOnly`: nonzero for only the nodes whose attribute "OldValue" exists and differs (case counts)
///   from the value with its decorations. "OldValue" is then overwritten with that value: the value before is
///   lost, and a second call finds nothing. Undo by "OldValue" comes first.
/// - `repeat`: the repeat number in force at `node`, normally 0.
/// - `idAttribute`: null means "DataID".
/// - `allBranches`: nonzero gives a branch that has neither a value attribute nor a decoration the value
///   "-1", 0 gives it no entry. A branch with bit 20 makes it count as 0 for itself, the siblings that follow
///   and all below them.
/// - `error` (may be null): gets a message about a node without DataID, if `idAttribute` is null and the
///   string is still empty, and one about a node whose ID cannot be combined, which replaces any other. Such
///   a node is read all the same, under its plain ID, and the repeat number from above stays in force below
///   it. A string that is an element of an array which the call fills gets nothing.
/// The number of nodes read; -1, and nothing changed, if `node` is null or invalid or `ids` is null.
RYTREE_API int vctree_get_values_with_ids(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values,
                                          int recursive, int changedOnly, int repeat, const char* idAttribute,
                                          int allBranches, CString* error);

/// The same with host arrays. `labels` (may be null) gets the attribute "Label" of each node read, or its tag
/// where it has none; it is not emptied, the new entries are appended. The result is -1, and nothing
/// changed, also if `values` is null or one of the arrays is not of its kind.
extern "C" RYTREE_API int rytree_get_values_with_ids(RYXmlWrapperBase* node, HostArrayObject* ids,
                                                     HostArrayObject* values, HostArrayObject* labels,
                                                     int recursive, int changedOnly, int repeat,
                                                     const char* idAttribute, int allBranches,
                                                     CString* error);

/// Writes values into the nodes below `node` that have their IDs, in pre-order. A node whose ID is not in
/// `ids` is left alone and its subtree still walked; an ID that no node has is not a failure; several nodes
/// may have one ID.
///
/// Decorations ("::{name=text}" anywhere in a value of 7 characters or more, name and text not empty; one
/// inside the text of another counts too) are written as attributes of those names, and the value is what
/// follows the last of them; one whose name is not a valid attribute name is taken off and lost. Then
/// "ThemeApplicability" decides, as described above, whether and where the value is stored; "Data" is never
/// set to an empty value. A leaf whose composed ID has bit 21 (0x200000) set is stored as a branch is.
/// Values are stored with CheckSetValue, the empty ones too.
/// - `repeat`: the repeat number in force at `node`, normally 0.
/// - `duplicate`: if null, equal IDs are not a failure and the first one counts. Otherwise it gets the ID
///   that occurs twice, of several such IDs the one that comes first in `ids`; without one it is untouched.
/// - `storeArgument`: the first argument of every CheckSetValue.
/// - `idAttribute`: null means "DataID".
/// - `error` (may be null): overwritten with a message for the results -4 and -5.
/// The number of nodes matched, whether their value was stored or not; or, tested in this order:
///  -1   `node` is null or invalid, or `ids` or `values` is null
///  -2   an array is empty
///  -3   the sizes differ
///  -4   an ID occurs twice; nothing is written
///  -5   the ID of a node cannot be combined with the repeat number; what was written before stays
/// Linear in the nodes and the entries together, and in the texts written: decorations inside each other can
/// make many long ones of a short value.
RYTREE_API int vctree_set_values_by_ids(RYXmlWrapperBase* node, CArray<int, int>* ids, CStringArray* values,
                                        int repeat, int* duplicate, int storeArgument,
                                        const char* idAttribute, CString* error);

/// The same with host arrays, -1 also where one of them is not of its kind, and with options for the nodes
/// that take a value, stored or not:
///   0x10000   no "Auto" decoration: the automatic mode that the node may have is switched off but kept
///   0x20000   no "DynaUseChck" decoration: that attribute becomes 1, if the node has it as an int
/// A decoration that bit 17 kept from being written counts as none.
extern "C" RYTREE_API int rytree_set_values_by_ids(RYXmlWrapperBase* node, HostArrayObject* ids,
                                                   HostArrayObject* values, int repeat, int* duplicate,
                                                   int storeArgument, const char* idAttribute, CString* error,
                                                   DWORD options);

/// Order: `source`, `destination`. Reads all values below `source` and writes them into the nodes below
/// `destination` that have the same IDs, whatever the shapes of the two trees, which may be one tree.
/// - `storeArgument`: the first argument of every CheckSetValue.
/// - `sourceIdAttribute`, `destinationIdAttribute`: null means "DataID".
/// - `allBranches`: as in vctree_get_values_with_ids.
/// - `hook` (may be null): if anything was read, its `active` is 0 afterwards, even if the callback throws.
/// - `keepBit18Off`: nonzero makes bit 18 of "ThemeApplicability" count as not set.
/// - `dropEmpty`: nonzero leaves empty values unwritten, and their IDs then match no node.
/// The number of nodes matched, 0 also if there was nothing to read or a node is invalid; or
///  -N   the ID N, above 0, occurs twice among those read; nothing is written
///  -1   a node is null
///  -2   `dropEmpty` left nothing
///  -4   an ID of 0 or below occurs twice; nothing is written
///  -5   an ID in `destination` cannot be combined; what was written before stays
/// A negated ID looks the same as the code of that number.
RYTREE_API int vctree_copy_values_by_id(RYXmlWrapperBase* source, RYXmlWrapperBase* destination,
                                        int storeArgument, const char* sourceIdAttribute,
                                        const char* destinationIdAttribute, int allBranches,
                                        _SETVALUESBYIDS* hook, int keepBit18Off, int dropEmpty);

/// The same without a hook.
extern "C" RYTREE_API int rytree_copy_values_by_id(RYXmlWrapperBase* source, RYXmlWrapperBase* destination,
                                                   int storeArgument, const char* sourceIdAttribute,
                                                   const char* destinationIdAttribute, int allBranches,
                                                   int keepBit18Off, int dropEmpty);

/// Order: `source`, `destination`. Makes the nodes that `destination` lacks, then copies all values by
/// "DataID". To copy a tree with its branches, use AddNodeCopy or ReplaceByNodeCopy: what is made here is
/// flat. A node made for a branch is a leaf, and its text becomes the branch's "Use" or "-1". The values in
/// repeated branches are lost, since the nodes made for them lie outside any repeat: they have the plain ID,
/// and the value has the composed one.
///
/// For `source` and each node below it that has an int attribute "DataID" which no node below `destination`
/// has as node ID or as DataID, a node is appended to the direct children of `destination`, whatever its
/// depth in `source`, with its tag, DataID and "Label" (empty where it has none). Plain IDs are looked for,
/// not composed ones. The nodes made stay even if the copy fails. The result is that of
/// rytree_copy_values_by_id with all branches: 0 for an invalid node, -1 for a null one. Linear in the two
/// trees.
extern "C" RYTREE_API int rytree_whole_copy_values_by_id(RYXmlWrapperBase* source,
                                                         RYXmlWrapperBase* destination);

/// Order: `source`, `destination`. Copies attributes instead of values, between the nodes of one ID. A
/// source node takes part if it has one of the attributes with a text that is not empty; where it lacks the
/// other, that is removed from the destination node.
/// - `attribute1`: null or empty means none.
/// - `attribute2`: with `rename` 0 a second attribute, null or empty for none. With `rename` nonzero the name
///   that attribute 1 gets in the destination; a name that is not an XML name is never written.
/// - `sourceIdAttribute`, `destinationIdAttribute`: null means "DataID".
/// The ID, negated, that occurs twice among the nodes taking part, if it is above 0; nothing is written then.
/// 0 in every other case, failures, null and invalid nodes included: it does not tell whether anything was
/// copied.
extern "C" RYTREE_API int rytree_copy_atts_by_id(RYXmlWrapperBase* source, RYXmlWrapperBase* destination,
                                                 const char* attribute1, const char* sourceIdAttribute,
                                                 const char* destinationIdAttribute, const char* attribute2,
                                                 int rename);

/// Order: `source`, `destination`. Removes from `destination` what equals `source`: each leaf whose value,
/// decorations included, equals without regard to case that of the same ID in `source`, and each branch that
/// has thus lost its last child, whatever its ID. The values of branches are not compared, and a leaf
/// without an ID stays. The number of nodes removed, 0 also if `source` has no value to give or a node is
/// invalid; -N or -4 for an ID that occurs twice in `source`, -1 and -5 as in vctree_copy_values_by_id, with
/// removed in place of written. Linear in the two trees.
extern "C" RYTREE_API int rytree_remove_unchange_nodes_by_id(RYXmlWrapperBase* source,
                                                             RYXmlWrapperBase* destination,
                                                             const char* sourceIdAttribute,
                                                             const char* destinationIdAttribute);
