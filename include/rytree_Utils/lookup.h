// Finding a node: by number, ID, attribute, tag or path, or at the top of its tree; and making it where it is
// missing.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

#include <cstdarg>

// Flag word of rytree_get_node_ex and rytree_move_node; all other bits have no effect.
inline constexpr DWORD kNodeLevelMask = 0x000FF;  ///< the maximum level, read only with kNodeLimitLevel
inline constexpr DWORD kNodeAttributeRequired = 0x10000;  ///< nodes without the attribute are passed over
inline constexpr DWORD kNodeBranchesOnly = 0x20000;       ///< leaves are passed over, uncounted
inline constexpr DWORD kNodeLimitLevel = 0x40000;         ///< there is a maximum level

extern "C" {

/// Order: `node`, `out`. Finds a node by its number. The nodes below `node` are numbered in pre-order,
/// beginning with `*counter` at its first child; those that the filters pass over have no number.
/// - `maxLevel`: how far down to look, `level` (callers give 0) being that of the children of `node`.
///   Negative: no limit.
/// - `attribute` (null or empty: no such filter): with `attributeEndsDescent` a node that has it counts, but
///   what is below it does not; without, a node that lacks it is passed over with all that is below it.
/// - `branchesOnly`: leaves do not count.
///
/// `counter` is left at the number that comes next, or at `index` when found, and goes on from call to call.
/// 1 and `out` set, or 0 and `out` untouched: no node has that number, `index` is negative, `level` is above
/// `maxLevel`, `node` is invalid, or `node`, `out` or `counter` is null.
RYTREE_API int rytree_get_node(RYXmlWrapperBase* node, RYXmlWrapperBase* out, int index, int* counter,
                               int maxLevel, const char* attribute, bool attributeEndsDescent,
                               bool branchesOnly, int level);

/// Order: `node`, `out`. rytree_get_node from number 0 and level 0, its filters packed into `flags` (above).
/// To number the direct children alone, give kNodeLimitLevel with level 0: without that bit every level
/// counts, whatever the level bits say, and number 1 may be a grandchild. 0 if `out` is null, else 1 whether
/// or not a node was found, and for a null `node` too: hand in a fresh handle and test it, since a search
/// without success leaves `out` as it was.
RYTREE_API int rytree_get_node_ex(RYXmlWrapperBase* node, RYXmlWrapperBase* out, int index, DWORD flags,
                                  const char* attribute);

/// Order: `node`, `out`. Finds the first child, with `recursive` the first node below in pre-order, whose
/// node ID or whose DataID is `id`. The two are not told apart: a node whose node ID happens to be the
/// number wins over one with that DataID further on. To go by DataID alone, call rytree_find_node with
/// "DataID". `node` itself is not tested. 1 and `out` set, or 0 and `out` untouched, also for a null
/// pointer.
RYTREE_API int rytree_get_node_by_id(RYXmlWrapperBase* node, RYXmlWrapperBase* out, int id, bool recursive);

/// Order: `node`, `out`. Puts `out` on the root of the tree of `node`. 1 if `out` ends valid, else 0; an
/// invalid `node` leaves `out` alone, so that the result then tells whether it was valid before. 0 for a
/// null pointer.
RYTREE_API int rytree_get_root_node(RYXmlWrapperBase* node, RYXmlWrapperBase* out);

/// Order: `node`, `out`. Finds the first node of a tag: `node` itself, then with `recursive` those below it
/// in pre-order. The tag is compared byte for byte with `caseSensitive`, else without regard to case. With
/// `leavesOnly` a node with children is never the one, though the search goes on below it. True and `out`
/// set unless it is null; false and `out` untouched, also if `node` or `tag` is null.
RYTREE_API bool rytree_get_node_by_tagname(RYXmlWrapperBase* node, RYXmlWrapperBase* out, const char* tag,
                                           bool recursive, bool caseSensitive, bool leavesOnly);

/// Order: `out`, `parent`. Puts `out` on the first child of `parent` with that tag, or on a new last child
/// with that tag and the node ID `nodeId` (0 and -1: none); a child that was found keeps its node ID. If
/// `attribute` and `attributeValue` are both neither null nor empty, the attribute is written, on a found
/// node too. `find` is handed to FindChild, which does not need it. 1 if `out` ends valid. 0 if the child
/// could not be made (bad tag, invalid parent, tree too deep), `out` then being invalid, or if `out` or
/// `parent` is null.
RYTREE_API int rytree_tree_check_get_node(RYXmlWrapperBase* out, RYXmlWrapperBase* parent, const char* tag,
                                          int nodeId, const char* attribute, const char* attributeValue,
                                          int find);

/// Order: `out`, `parent`. Puts `out` on the first node below `parent` whose attribute has exactly that text
/// (`find` 0 looks among the direct children, else among all descendants), or on a new last child that gets
/// the attribute and as its tag the text made a valid name. An attribute name that is not a valid one is
/// never found and not written: each call then makes another child. True if found or made; false with `out`
/// invalid if it could not be made, and with `out` untouched if a pointer is null.
RYTREE_API bool rytree_tree_check_get_node_by_attribute(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                                        const char* attribute, const char* attributeValue,
                                                        int find);

/// Order: `parent`, `out`. Puts `out` on the first direct child of `parent` with that DataID. If there is
/// none and `out` is invalid, adds a child with the tag, with the attribute if it and its value are neither
/// null nor empty, and with the DataID if that is above 0; a DataID of 0 or below is found but never
/// written, so that each such call adds another child. An `out` that is valid at the start counts as the
/// answer when no child is found, and nothing is added: hand in a fresh handle. Always true, also for a null
/// pointer or when no child could be made: test `out`.
RYTREE_API bool rytree_check_get_node_by_dataid(RYXmlWrapperBase* parent, RYXmlWrapperBase* out,
                                                const char* tag, int dataId, const char* attribute,
                                                const char* attributeValue);

/// Order: `parent`, `found`. Finds the first node in pre-order whose attribute reads as the int `value`:
/// among the children of `parent`, with `depth` 1 or more so many levels further down, with `recursive` at
/// any depth. `repeatId` above 0 asks that a match has that repeat number too; it binds the direct children
/// of `parent` only, below them any match will do, also below a child that has the value and another repeat
/// number. 1 and `found` set, or 0 and `found` untouched, also for a null pointer (`attribute` too).
RYTREE_API int rytree_find_node(RYXmlWrapperBase* parent, RYXmlWrapperBase* found, const char* attribute,
                                int value, bool recursive, int depth, int repeatId);

/// Order: `parent`, `found`. Finds the node `id` under an optional chain of ancestors: the grandparent
/// anywhere below `parent`, the parent among its children, the node among the children of that. An ID of 0
/// leaves its step out, and the first step that is left searches at any depth. All are compared as the int
/// value of `attribute`, the two ancestors with their repeat numbers as in rytree_find_node. 0: found. -1: a
/// null pointer. -2: `id` is 0, or there is a grandparent without a parent. Otherwise the ID that was not
/// found, with `found` on the last ancestor that was, or untouched if there was none; an ID of -1 or -2 that
/// was not found looks like those codes.
RYTREE_API int rytree_find_node_ex(RYXmlWrapperBase* parent, RYXmlWrapperBase* found, const char* attribute,
                                   int id, int parentId, int parentRepeatId, int grandparentId,
                                   int grandparentRepeatId);

/// Order: `out`, `node`, which is the other way round than in rytree_find_node_ex: that on "DataID", with
/// `node` as its parent and `out` as its `found`. True if found; on false `out` is made
/// invalid.
RYTREE_API bool rytree_find_node_by_dataID(RYXmlWrapperBase* out, RYXmlWrapperBase* node, int dataId,
                                           int parentId, int parentRepeatId, int grandparentId,
                                           int grandparentRepeatId);

}  // extern "C"

/// Writes the repeat number of a node; there is no upper bound. A number below 1 removes it and gives 1,
/// whether or not there was one and on an invalid node too. Otherwise nonzero, or 0 if it could not be
/// written.
RYTREE_API int VCTreeSetRepeatId(RYXmlWrapperBase& node, int id);

/// Reads the repeat number of a node. 1 if it lies from 1 to 32767. Otherwise 0, with `id` set to what was
/// read, -1 if there is none.
RYTREE_API int VCTreeGetRepeatId(RYXmlWrapperBase& node, int& id);

// A tag path leads from a node down to the first child of the first tag, from there to the first child of the
// next, and so on: each argument is one whole tag, byte for byte, "a", "b" and not "a.b" or "a/b" ("a.b" is a
// valid tag of its own). A null pointer ends it, so that every call ends in `nullptr`: without it the call
// reads on beyond its arguments. A null first tag makes an empty path, which leads to the start node; a
// compiler that checks for the end wants a second null there.

/// Order: `out`, `start`. Follows a tag path from `start`. With `create` nonzero each level that is missing
/// is made; otherwise nothing changes. Nonzero with `out` set. 0 with `out` untouched, or set to an invalid
/// `start` by an empty path; a path that stops half way, at a tag that is not a valid name or where the tree
/// would be too deep, keeps the levels made so far.
RYTREE_API int tmxfu_tree_check_get_node_ex(RYXmlWrapperBase& out, RYXmlWrapperBase& start, int create,
                                            const char* firstTag, va_list tags);

/// Order: `out`, `start`. tmxfu_tree_check_get_node_ex that makes what is missing.
RYTREE_API int tmxfu_tree_check_get_node(RYXmlWrapperBase& out, RYXmlWrapperBase& start, const char* firstTag,
                                         ...) RYTREE_ENDS_IN_NULL;

/// Order: `out`, `start`. tmxfu_tree_check_get_node_ex that changes nothing.
RYTREE_API int tmxfu_tree_get_node(RYXmlWrapperBase& out, const RYXmlWrapperBase& start, const char* firstTag,
                                   ...) RYTREE_ENDS_IN_NULL;

/// Reads (`get` nonzero) or writes (0) the vector of the node at the end of the path. Only writing makes
/// missing levels. 1, or 0 if the node was not reached or its text is not a list of numbers; `vector` is then
/// untouched. An empty text is the empty list.
RYTREE_API int tmxfu_tree_node_vector_value(RYXmlWrapperBase& start, tagRYSOBJVECT& vector, int get,
                                            const char* firstTag, ...) RYTREE_ENDS_IN_NULL;
