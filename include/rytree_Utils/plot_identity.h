// The identity of a plot and of a data marker, as a tree holds it.
#pragma once

#include <rytree_host/node.h>

/// Reads or writes the identity of the plot, the int attribute "PlotObjUID" of `tree`; 0 is a valid one.
/// Nonzero, or 0 if `tree` is invalid or, on reading, has none that is an int; `id` is then untouched.
RYTREE_API int vctree_get_plot_uid_from_tree(RYXmlWrapperBase& tree, int& id);
RYTREE_API int vctree_set_plot_uid_to_tree(RYXmlWrapperBase& tree, int id);

/// Order: `target`, `source`. Copies the identity of the plot. 1 if `source` has one, even if `target` is
/// invalid and nothing is written; 0 with `target` untouched if it has none.
RYTREE_API int vctree_copy_plot_uid_from_tree_to_tree(RYXmlWrapperBase& target, RYXmlWrapperBase& source);

/// Read and write the identity of the data marker, the int attribute "DataMarkerID", in the same way.
RYTREE_API int vctree_get_data_marker_id_from_tree(RYXmlWrapperBase& tree, int& id);
RYTREE_API int vctree_set_data_marker_id_to_tree(RYXmlWrapperBase& tree, int id);
