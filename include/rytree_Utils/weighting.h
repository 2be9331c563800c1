// The weighting of the data of a fit: its methods and its two forms in a tree.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// A weight method is a number from 0 to 14. It needs data, or some of the parameters a, b and c:
//
//     0  No Weighting                     7  Variance = c^b+a*y^b             a, b, c
//     1  Instrumental        data         8  Variance = a*y^b*c^(tlast-t)     data, a, b, c
//     2  Statistical                      9  Variance ~ yfit
//     3  Arbitrary Dataset   data        10  Variance ~ yfit^2
//     4  Direct Weighting    data        11  Variance = a*yfit^b              a, b
//     5  Variance ~ y^2                  12  Variance = c^b+a*yfit^b          a, b, c
//     6  Variance = a*y^b    a, b        13  Variance = a*yfit^b*c^(tlast-t)  data, a, b, c
//                                        14  Variance = [max(z,a)]^b          a, b
//
// The compact form of a weighting is one node. Call it "W": vctree_extract_weight_info refuses any other tag
// (unless it is told not to look), while the conversions take every one.
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
///   more. A child without "Show", as a new one is, counts as shown before.
/// - `data`, `a`, `b`, `c`: written whether or not the method needs them; null keeps the stored value.
/// - `checkSame`: if nonzero, only "DisableWeightMethod" is written when the stored method is `method`
///   already.
/// - `disable`: for "DisableWeightMethod", which is written even when the update then gives 0.
///
/// "Combo" moves from `parent` to "WeightData". If the parent has none, an empty one is written there: to
/// keep it over a second update, put it back on the parent first. Labels are written again at each update.
/// 1 if updated, also if one of the last four children could not be made. 0 if `parent` is invalid or
/// "WeightMethod" could not be made, and nothing changes; if the method was the same; or if it is not one of
/// the 15 ("WeightMethod" is then hidden and keeps its value).
RYTREE_API int vctree_update_fitter_data_weight_node(RYXmlWrapperBase& parent, int method,
                                                     unsigned long& change, const char* data, double* a,
                                                     double* b, double* c, int checkSame, int disable);

/// Reads a compact weighting, but for its data, which are the node's text. Every pointer may be null; an
/// attribute that is missing or not a number gives 0. 1, or 0 with nothing touched if the tag of `node` is
/// not "W". A `tag` that is neither null nor empty is tested instead of that of `node`: with "W" every node
/// is read, an invalid one as if without attributes, and with any other the result is 0.
RYTREE_API int vctree_extract_weight_info(RYXmlWrapperBase& node, const char* tag, int* method, double* a,
                                          double* b, double* c);

/// Order: `expanded`, `compact`, the destination first. Compact to expanded: all children are made that are
/// missing, and every value is overwritten, missing attributes counting as 0. A missing "Combo" leaves the
/// one that `expanded` itself may have, which then moves to "WeightData". 0 with nothing changed if a node is
/// invalid, else 1, also if the method is not one of the 15: then only "Label", "DisableWeightMethod" and
/// "Combo" of `expanded` and a hidden "WeightMethod" are written.
RYTREE_API int vctree_fitter_data_weight_node_compact_to_expanded(RYXmlWrapperBase& expanded,
                                                                  RYXmlWrapperBase& compact);

/// Order: `compact`, `expanded`, the destination first. Expanded to compact: method, data, a, b, c, each if
/// it can be read; empty data can and replace the text of `compact`, an empty number cannot. "Combo" and
/// "DisableWeightMethod" are not copied back. Changes both: children that `expanded` lacks are made there,
/// without node ID. 1, or 0 with `compact` untouched if one cannot be made, as for an invalid `expanded`. An
/// invalid `compact` takes nothing in and gives 1 all the same.
RYTREE_API int vctree_fitter_data_weight_node_expanded_to_compact(RYXmlWrapperBase& compact,
                                                                  RYXmlWrapperBase& expanded);
