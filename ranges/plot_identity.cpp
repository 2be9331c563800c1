// The identity of plots and data markers.
#include <rytree_Utils/plot_identity.h>

namespace {

constexpr const char* kPlotUid = "PlotObjUID";
constexpr const char* kDataMarkerId = "DataMarkerID";

}  // namespace

int vctree_get_plot_uid_from_tree(RYXmlWrapperBase& tree, int& id) {
  return tree.GetPropertyValue(kPlotUid, id);
}

int vctree_set_plot_uid_to_tree(RYXmlWrapperBase& tree, int id) {
  return tree.SetPropertyValue(kPlotUid, id);
}

int vctree_copy_plot_uid_from_tree_to_tree(RYXmlWrapperBase& target, RYXmlWrapperBase& source) {
  int id = 0;
  if (vctree_get_plot_uid_from_tree(source, id) == 0) return 0;
  vctree_set_plot_uid_to_tree(target, id);
  return 1;
}

int vctree_get_data_marker_id_from_tree(RYXmlWrapperBase& tree, int& id) {
  return tree.GetPropertyValue(kDataMarkerId, id);
}

int vctree_set_data_marker_id_to_tree(RYXmlWrapperBase& tree, int id) {
  return tree.SetPropertyValue(kDataMarkerId, id);
}
