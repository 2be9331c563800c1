// The parameters of a fit, and values between vector nodes and arrays.
#pragma once

#include <rytree_Utils/missing_value.h>
#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// The parameter branch of a fit has a vector node for each kind of setting, and below it a value for each
// parameter, all on a fixed grid of DataIDs:
//
//     <Tree DataID="2900">                                           any tag
//       <AutoParamsInit DataID="2906"/> <LinearConstraints DataID="2907"/>
//       <Share DataID="5000"> <Value1 DataID="5001"/> <Value2 DataID="5002"/> … </Share>
//       <Fixed DataID="6000"> … </Fixed>                             and so on, in the order of each column:
//
//     Share 5000                   LowerBoundsExclusive 8000     UpperBoundsEnable 12000
//     Fixed 6000                   LowerBoundsEnable 9000        Values 13000
//     FixedValues 15000            UpperBounds 10000             SignificantDigit 14000
//     LowerBounds 7000             UpperBoundsExclusive 11000
//
// The parameters themselves are in "Values", not in the first vector. To find a vector node, look for its
// DataID (rytree_find_node): its tag may be another. A vector has room for 999 values; a 1000th would have
// the DataID of another vector, and a transfer by ID would stop at the duplicate.

extern "C" {

/// Builds or resizes the parameter branch of a fit under `tree`; an invalid handle gets a new root, null does
/// nothing. "AutoParamsInit" and "LinearConstraints" are found by tag and get their DataIDs; a vector node
/// and its values are found by DataID whatever their tags. A vector with more children than `count` loses the
/// last ones; a negative `count` makes the vectors and leaves all values as they are, and one above 100,000
/// does nothing at all. One above 999 is not refused, although the grid has no room for it. Linear in
/// `count`.
RYTREE_API void rytree_nlsf_add_params_node_DataID(RYXmlWrapperBase* tree, int count);

/// Fills the array from one block of as many children of a parameter vector as the array has elements:
/// element i from child i + size * `block`, by position, whatever their tags and DataIDs. An empty child
/// takes its place in the block and cannot be converted.
///
/// False for a null object or one without such an array, for a null or invalid vector, and for a vector whose
/// tag is not one of the 11 above (case counts; here the DataID is not looked at). Then true for an empty
/// array, and where every element was converted. False at the first child that is missing or cannot be
/// converted; elements before it stay filled. A bool must be the int 0 or 1. A double that is the missing
/// value, or NaN, leaves its element alone and counts as converted.
[[nodiscard]] RYTREE_API bool rytree_nlf_set_bool_param_from_user_params_setting(RYXmlWrapperBase* vector,
                                                                                 HostArrayObject* values,
                                                                                 int block);
[[nodiscard]] RYTREE_API bool rytree_nlf_set_double_param_from_user_params_setting(RYXmlWrapperBase* vector,
                                                                                   HostArrayObject* values,
                                                                                   int block);
[[nodiscard]] RYTREE_API bool rytree_nlf_set_int_param_from_user_params_setting(RYXmlWrapperBase* vector,
                                                                                HostArrayObject* values,
                                                                                int block);

/// Reads the children of any vector node into the array, which keeps its size: give it as many elements as
/// there are children. An empty child (a leaf without text) is skipped and uses up no element, so that those
/// after it move up; a child that cannot be read uses one up and leaves it alone. Elements beyond the last
/// one used stay. The number of elements used up, or -1 for a null object or one without such an array and
/// for a null or invalid vector.
RYTREE_API int rytree_value_from_tree_sub_nodes_to_vector_bool(RYXmlWrapperBase* vector,
                                                               HostArrayObject* values);
RYTREE_API int rytree_value_from_tree_sub_nodes_to_vector_double(RYXmlWrapperBase* vector,
                                                                 HostArrayObject* values);
RYTREE_API int rytree_value_from_tree_sub_nodes_to_vector_int(RYXmlWrapperBase* vector,
                                                              HostArrayObject* values);

/// Writes the array, at most 999 elements of it, to the children of a vector node. The array comes first
/// here.
/// - Up to that many children: element i goes to the first child with the vector's DataID + i + 1, which is
///   made ("Value" and i + 1) if it is missing. If that DataID is 0 or below, the new child does not get it,
///   and each call makes another.
/// - More children: the surplus at the end is removed (for an empty array all of them), and the others take
///   the elements by position, whatever their tags and DataIDs.
///
/// Nothing happens for a null object or one without such an array, and for a vector that is null, invalid or
/// without an int DataID. Linear in the elements and children.
RYTREE_API void rytree_value_from_vec_bool_to_tree_sub_nodes(HostArrayObject* values,
                                                             RYXmlWrapperBase* vector);
RYTREE_API void rytree_value_from_vec_double_to_tree_sub_nodes(HostArrayObject* values,
                                                               RYXmlWrapperBase* vector);
RYTREE_API void rytree_value_from_vec_int_to_tree_sub_nodes(HostArrayObject* values,
                                                            RYXmlWrapperBase* vector);

}  // extern "C"
