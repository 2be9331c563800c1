// The parameters of a fit, and values between vector nodes and arrays.
#pragma once

#include <rytree_Utils/missing_value.h>
#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Builds or resizes the parameter branch of a fit: `tree` (an invalid handle gets a new root; null does
/// nothing) gets the DataID 2900, the children "AutoParamsInit" (2906) and "LinearConstraints" (2907), and 11
/// vector nodes, each with the children "Value1" to "Value" and `count` at its own DataID + 1 to + `count`. A
/// vector node and its values are found by DataID whatever their tags. A vector with more children than
/// `count` loses the last ones; a negative `count` leaves all values as they are, and one above 100,000 does
/// nothing at all. The grid has room for 999 parameters, which is not tested. Linear in `count`.
RYTREE_API void rytree_nlsf_add_params_node_DataID(RYXmlWrapperBase* tree, int count);

/// Fills the array from one block of as many children of a parameter vector as the array has elements:
/// element i from child i + size * `block`. True when every element was converted, and for an empty array.
/// False for a null object or one without such an array, a null or invalid vector, a vector whose tag is none
/// of the 11 (case counts), a missing child or one that cannot be converted: elements before it stay filled.
/// A bool must be the int 0 or 1. A double that is the missing value, or NaN, leaves its element alone and
/// counts as converted.
RYTREE_API bool rytree_nlf_set_bool_param_from_user_params_setting(RYXmlWrapperBase* vector,
                                                                   HostArrayObject* values, int block);
RYTREE_API bool rytree_nlf_set_double_param_from_user_params_setting(RYXmlWrapperBase* vector,
                                                                     HostArrayObject* values, int block);
RYTREE_API bool rytree_nlf_set_int_param_from_user_params_setting(RYXmlWrapperBase* vector,
                                                                  HostArrayObject* values, int block);

/// Reads the children of any vector node into the array, which keeps its size. An empty child (a leaf without
/// text) is skipped and uses up no element; a child that cannot be read uses one up and leaves it alone. The
/// number of elements used up, or -1 for a null object or one without such an array and for a null or invalid
/// vector.
RYTREE_API int rytree_value_from_tree_sub_nodes_to_vector_bool(RYXmlWrapperBase* vector,
                                                               HostArrayObject* values);
RYTREE_API int rytree_value_from_tree_sub_nodes_to_vector_double(RYXmlWrapperBase* vector,
                                                                 HostArrayObject* values);
RYTREE_API int rytree_value_from_tree_sub_nodes_to_vector_int(RYXmlWrapperBase* vector,
                                                              HostArrayObject* values);

/// Writes the array, at most 999 elements of it, to the children of a vector node.
/// - Up to that many children: element i goes to the first child with the vector's DataID + i + 1, which is
///   made ("Value" and i + 1) if it is missing.
/// - More children: the surplus at the end is removed, and the others take the elements by position, whatever
///   their tags and DataIDs.
///
/// Nothing happens for a null object or one without such an array, and for a vector that is null, invalid or
/// without a DataID. Linear in the elements and children.
RYTREE_API void rytree_value_from_vec_bool_to_tree_sub_nodes(HostArrayObject* values,
                                                             RYXmlWrapperBase* vector);
RYTREE_API void rytree_value_from_vec_double_to_tree_sub_nodes(HostArrayObject* values,
                                                               RYXmlWrapperBase* vector);
RYTREE_API void rytree_value_from_vec_int_to_tree_sub_nodes(HostArrayObject* values,
                                                            RYXmlWrapperBase* vector);

}  // extern "C"
