// The identity of a plot and of a data marker, as a tree holds it.
#pragma once

#include <rytree_host/node.h>

/// Reads or writes the identity of the plot, the int attribute "PlotObjUID" of `tree`; 0 is a valid one.
/// Nonzero, or 0 if `tree` is invalid or, on reading, has none; `id` is then untouched.
RYTREE_API int vctree_get_plot_uid_from_tree(RYXmlWrapperBase& tree, int& id);
RYTREE_API int vctree_set_plot_uid_to_tree(RYXmlWrapperBase& tree, int id);

/// Copies the identity of the plot. 1, also if `target` is invalid; 0 with `target` untouched if `source` has
/// none.
RYTREE_API int vctree_copy_plot_uid_from_tree_to_tree(RYXmlWrapperBase& target, RYXmlWrapperBase& source);

/// The same for the data marker, whose identity is the int attribute "DataMarkerID".
RYTREE_API int vctree_get_data_marker_id_from_tree(RYXmlWrapperBase& tree, int& id);
RYTREE_API int vctree_set_data_marker_id_to_tree(RYXmlWrapperBase& tree, int id);
