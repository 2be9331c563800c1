// Fit settings: the weighting of the data, and the grid of the parameters.
#pragma once

#include <rytree_Utils/missing_value.h>
#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// ---- Weighting. A weight method is a number from 0 to 14. It needs data, or some of the parameters a, b and
// c.
//
// The compact form of a weighting is one node, tag "W": its text is the weight data; attributes
// "WeightMethod" (int), "Weight_A", "Weight_B", "Weight_C" (double), "Combo" (text), "DisableWeightMethod"
// (int).
//
// The expanded form is a parent with "Label" and "DisableWeightMethod" and the children "WeightMethod" (node
// ID 11, always hidden), "WeightData" (13, with "Combo" and the action ID 1010), "WeightA", "WeightB",
// "WeightC" (14 each). "Show" of the last four follows the needs of the method. Labels are the host's texts.

extern "C" {

/// What a weight method is called and needs. Every pointer may be null; each need becomes 1 or 0, all of them
/// 0 for a method outside 0 to 14, which also empties `name`. 1 for a valid method, else 0.
RYTREE_API int rytree_fitter_get_weight_mth_info(int method, CString* name, int* needData, int* needA,
                                                 int* needB, int* needC);

/// Builds or resizes the parameter branch of a fit: `tree` (an invalid handle gets a new root; null does
/// nothing) gets the DataID 2900, the children "AutoParamsInit" (2906) and "LinearConstraints" (2907), and 11
/// vector nodes, each with the children "Value1" to "Value" and `count` at its own DataID + 1 to + `count`. A
/// vector node and its values are found by DataID whatever their tags. A vector with more children than
/// `count` loses those behind; a negative `count` leaves all values as they are. The grid has room for 999
/// parameters, which is not tested. Linear in `count`.
RYTREE_API void rytree_nlsf_add_params_node_DataID(RYXmlWrapperBase* tree, int count);

/// Fills the array from one block of as many children of a parameter vector as the array has elements:
/// element i from child i + size * `block`. True when every element was converted, and for an empty array.
/// False for a null object or one without such an array, a null or invalid vector, a vector whose tag is none
/// of the 11 (case counts), a child that is not there or cannot be converted: elements before it stay filled.
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

/// Writes the array, at most 999 elements of it, to the children of a vector node. Up to that many children:
/// element i goes to the first child with the vector's DataID + i + 1, which is made ("Value" and i + 1)
/// where it is missing. More children: those behind are removed and the others take the elements by position,
/// whatever their tags and DataIDs. Nothing happens for a null object or one without such an array, and for a
/// vector that is null, invalid or without a DataID. Linear in the elements and children.
RYTREE_API void rytree_value_from_vec_bool_to_tree_sub_nodes(HostArrayObject* values,
                                                             RYXmlWrapperBase* vector);
RYTREE_API void rytree_value_from_vec_double_to_tree_sub_nodes(HostArrayObject* values,
                                                               RYXmlWrapperBase* vector);
RYTREE_API void rytree_value_from_vec_int_to_tree_sub_nodes(HostArrayObject* values,
                                                            RYXmlWrapperBase* vector);

}  // extern "C"

/// The name of one method and the names of all. With a `name`: a method outside 0 to 14 empties both and
/// gives -1. Without, `method` is not looked at. `names` (may be null) is replaced by the 15 names, in order.
/// 15 otherwise.
RYTREE_API int VCTreeGetFitterWeightStrings(int method, CString* name, CStringArray* names);

/// Brings an expanded weighting in step with a method; missing children are made. `data`, `a`, `b`, `c` (each
/// may be null: the stored value stays) are written whether or not the method needs them. "Combo" moves from
/// `parent` to "WeightData", which gets an empty one where the parent has none. `disable` is written to
/// "DisableWeightMethod" even when the update then gives 0. `change`, written on success only: 0 as many of
/// the four children are shown as before, 1 fewer, 2 more; a child without "Show" counts as shown before. 1
/// updated; 0 if "WeightMethod" could not be made, if `checkSame` is not 0 and the stored method is `method`
/// already, or if the method is invalid ("WeightMethod" is then hidden and keeps its value).
RYTREE_API int vctree_update_fitter_data_weight_node(RYXmlWrapperBase& parent, int method,
                                                     unsigned long& change, const char* data, double* a,
                                                     double* b, double* c, int checkSame, int disable);

/// Reads a compact weighting; every pointer may be null, a missing attribute gives 0. 1, or 0 with nothing
/// touched if `tag` (or, where that is null or empty, the tag of `node`) is not "W". Only the tag is tested:
/// with a `tag` of "W" an invalid `node` reads as one without attributes.
RYTREE_API int vctree_extract_weight_info(RYXmlWrapperBase& node, const char* tag, int* method, double* a,
                                          double* b, double* c);

/// Compact to expanded. Missing attributes count as 0 and empty. 0 if a node is invalid, else 1, also for an
/// invalid method: "Label", "DisableWeightMethod", a hidden "WeightMethod" and "Combo" on the parent are then
/// all there is.
RYTREE_API int vctree_fitter_data_weight_node_compact_to_expanded(RYXmlWrapperBase& expanded,
                                                                  RYXmlWrapperBase& compact);

/// Expanded to compact: method, data, a, b, c, each where it can be read. Children that `expanded` lacks are
/// made there, without node ID. 1, or 0 with `compact` untouched if one cannot be made. An invalid `compact`
/// takes nothing in and gives 1 all the same.
RYTREE_API int vctree_fitter_data_weight_node_expanded_to_compact(RYXmlWrapperBase& compact,
                                                                  RYXmlWrapperBase& expanded);
