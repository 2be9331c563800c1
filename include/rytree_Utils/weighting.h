// The weighting of the data of a fit: its methods and its two forms in a tree.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// A weight method is a number from 0 to 14. It needs data, or some of the parameters a, b and c.
//
// The compact form of a weighting is one node:
//
//     <W WeightMethod="…" Weight_A="…" Weight_B="…" Weight_C="…"     an int and three doubles
//        Combo="…" DisableWeightMethod="…">data</W>                  a text and an int
//
// The expanded form is a branch. "Show" of its last four children follows the needs of the method; their
// labels are the host's texts:
//
//     <P Label="…" DisableWeightMethod="…">                          any tag
//       <WeightMethod Show="0"/>                                     node ID 11, always hidden
//       <WeightData Label="…" Combo="…" _ACTION_OBJECT_ID="1010"/>   13
//       <WeightA Label="…"/> <WeightB Label="…"/> <WeightC Label="…"/>   14 each

extern "C" {

/// What a weight method is called and needs. Every pointer may be null; each need becomes 1 or 0, all of them
/// 0 for a method outside 0 to 14, which also empties `name`. 1 for a valid method, else 0.
RYTREE_API int rytree_fitter_get_weight_mth_info(int method, CString* name, int* needData, int* needA,
                                                 int* needB, int* needC);

}  // extern "C"

/// The name of one method and the names of all.
/// - `name`: null, or set to the name of `method`. A method outside 0 to 14 then empties both outputs and
///   gives -1; with a null `name` the method is not looked at.
/// - `names`: null, or replaced by the 15 names in order.
///
/// 15 unless it is -1.
RYTREE_API int VCTreeGetFitterWeightStrings(int method, CString* name, CStringArray* names);

/// Brings an expanded weighting in step with a method and makes children that are missing.
/// - `change`: set on success only; 0: as many of the last four children are shown as before, 1: fewer, 2:
///   more. A child without "Show" counts as shown before.
/// - `data`, `a`, `b`, `c`: written whether or not the method needs them; null keeps the stored value.
/// - `checkSame`: if nonzero, nothing is done when the stored method is `method` already.
/// - `disable`: for "DisableWeightMethod", which is written even when the update then gives 0.
///
/// "Combo" moves from `parent` to "WeightData", and is made empty there if the parent has none.
/// 1 if updated. 0 if "WeightMethod" could not be made, if the method was the same, or if it is invalid
/// ("WeightMethod" is then hidden and keeps its value).
RYTREE_API int vctree_update_fitter_data_weight_node(RYXmlWrapperBase& parent, int method,
                                                     unsigned long& change, const char* data, double* a,
                                                     double* b, double* c, int checkSame, int disable);

/// Reads a compact weighting; every pointer may be null, a missing attribute gives 0. 1, or 0 with nothing
/// touched if `tag` (or, where that is null or empty, the tag of `node`) is not "W". Only the tag is tested:
/// with a `tag` of "W" an invalid `node` reads as one without attributes.
RYTREE_API int vctree_extract_weight_info(RYXmlWrapperBase& node, const char* tag, int* method, double* a,
                                          double* b, double* c);

/// Compact to expanded. Missing attributes count as 0 and empty. 0 if a node is invalid, else 1, also for an
/// invalid method: then only "Label", "DisableWeightMethod" and "Combo" of the parent and a hidden
/// "WeightMethod" are written.
RYTREE_API int vctree_fitter_data_weight_node_compact_to_expanded(RYXmlWrapperBase& expanded,
                                                                  RYXmlWrapperBase& compact);

/// Expanded to compact: method, data, a, b, c, each if it can be read. Children that `expanded` lacks are
/// made there, without node ID. 1, or 0 with `compact` untouched if one cannot be made. An invalid `compact`
/// takes nothing in and gives 1 all the same.
RYTREE_API int vctree_fitter_data_weight_node_expanded_to_compact(RYXmlWrapperBase& compact,
                                                                  RYXmlWrapperBase& expanded);
