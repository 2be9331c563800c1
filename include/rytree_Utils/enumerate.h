// Children that differ by a counter in their tag or in an attribute: the next free name, and numbered
// children.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Sets `name` to the first free tag among the children of `node`, case aside: `prefix`, or `prefix` with the
/// first number from 1 on that is free. An invalid or null node has no children; null `name` or `prefix`:
/// nothing happens. Nothing is made or kept free: the next call gives the same name until a node has it.
/// Linear in the children.
RYTREE_API void rytree_get_enum_node_name(RYXmlWrapperBase* node, CString* name, const char* prefix);

/// The same for the values of an attribute of the children, where a value counts as `prefix`, number,
/// `suffix` (null: empty). A child without the attribute counts with the value of the nearest child before it
/// that has it, or as empty where there is none. `suffix` takes part in the test only and is not in the
/// result: `value` becomes `prefix` and number, and the caller appends it.
RYTREE_API void rytree_get_enum_attribute_value(RYXmlWrapperBase* node, CString* value, const char* attribute,
                                                const char* prefix, const char* suffix);

/// The next tag for a child of `node`:
/// - with `numbered` 0 the first of A, B, … Z, AA, AB, … ZZ, AAA, … that no child has, case aside. The
///   result is 0.
/// - otherwise the first child's tag without the number at its end, and a number, which is also the result;
///   `name` may be null. The numbers of all children whose tags are that prefix (case aside) and a number are
///   sorted and compared with 1, 2, 3, …: the result is the first of the series that is not at its place.
///   1, 3 gives 2; 0, 1 gives 1. After a repeated number it may be taken: 1, 1, 2 gives 2.
///
/// -1 with `name` untouched: null or invalid node; null `name` for letters; for numbers no child, or a child
/// (the first or another) whose tag is that prefix alone. Linear in the children, but for the sort.
RYTREE_API int rytree_get_next_enum_tag_name(RYXmlWrapperBase* node, CString* name, int numbered);

/// Order: `child`, `parent`. Puts `child` on the child of `parent` whose tag is `prefix` and `number`, which
/// is made with the node ID `id` (0 and -1: none) if missing; one that was found keeps its node ID. Sets the
/// attribute, on a found node too, if neither it nor its value is null or empty. A node that cannot be made
/// (null or invalid prefix, invalid parent, tree too deep) leaves `child` invalid. Nothing happens if a node
/// pointer is null.
RYTREE_API void rytree_check_add_enumerated_node(RYXmlWrapperBase* child, RYXmlWrapperBase* parent,
                                                 const char* prefix, int number, int id,
                                                 const char* attribute, const char* value);

/// The node ID of a member of a set: the low 16 bits of `id`, above them the low 16 bits of `setNumber` with
/// 0x2000 set.
RYTREE_API int rytree_make_one_set_ID(int id, int setNumber);

/// For each element of `values` finds or makes the child that rytree_check_add_enumerated_node would, with the
/// element's number, the node ID that rytree_make_one_set_ID gives for `id` and that number, and the "Label"
/// `label` (null or empty: none); the element becomes the value, in place of a former one.
/// - `count`: the first number is `*count` + 1, or one above the number of children if `count` is null.
///   Afterwards `*count` is larger by the size of the array, whatever was made.
/// - `maxNodes`: no further element is written once `parent` has `*maxNodes` children, not even to a child
///   that is there already. Null: no limit.
///
/// True, also if nothing could be made because `parent` is invalid or `prefix` does not begin a valid tag:
/// look at the number of children. False, with `*count` untouched, for a null `parent`, a null object and one
/// that holds no double array. Linear in the elements and the children together.
RYTREE_API bool rytree_check_add_all_enumerated_nodes(RYXmlWrapperBase* parent, const char* prefix,
                                                      HostArrayObject* values, int id, const char* label,
                                                      int* count, int* maxNodes);

}  // extern "C"
