// Branches of input data: a labelled child for each tag, under a parent or in one of its ranges.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// Order: `out`, `parent`. Finds or makes a child for each tag, with node ID 35 when made, its label and
/// perhaps a value.
/// - `out`: set to the node that holds the children; may be the handle `parent`. With `rangeNumber` above 0
///   that is the child of `parent` tagged "Range" and the number, labelled like a range, found or made with
///   node ID `id` (0: none), else `parent` itself.
/// - `labels`: one for each tag; a missing or empty one leaves the child's label as it is.
/// - `value`: the text for the child at `valueIndex`, or for all if that is negative; null writes none.
///
/// Called again it finds what it made, and writes labels and values again. What could not be made is passed
/// over in silence; test `out`, which is invalid if the range could not be made or `parent` is invalid. The
/// result is always true and tells nothing: nothing is done if `out`, `parent` or an array is null. Time: one
/// pass over the children and one over the tags.
RYTREE_API bool VCTreeCheckAddInputDataBranch(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                              const CStringArray* tags, const CStringArray* labels, int id,
                                              int rangeNumber, int valueIndex, const char* value);

extern "C" {

/// Order: `out`, `parent`. VCTreeCheckAddInputDataBranch with host arrays of strings. Always true, also with
/// nothing done because one of them is null or does not hold a string array.
RYTREE_API bool rytree_tree_check_add_input_data_branch(RYXmlWrapperBase* out, RYXmlWrapperBase* parent,
                                                        HostArrayObject* tags, HostArrayObject* labels,
                                                        int id, int rangeNumber, int valueIndex,
                                                        const char* value);

}  // extern "C"
