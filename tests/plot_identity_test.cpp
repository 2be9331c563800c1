#include <rytree_Utils/plot_identity.h>

#include "tree_text.h"

TEST(PlotIdentity, ReadWrittenAndCopied) {
  RYXmlWrapperBase source = parse("<A DataMarkerID='4'/>");
  RYXmlWrapperBase target = parse("<B PlotObjUID='5'/>");
  int id = 77;
  EXPECT_EQ(vctree_copy_plot_uid_from_tree_to_tree(target, source), 0);
  EXPECT_EQ(vctree_get_plot_uid_from_tree(source, id), 0);
  EXPECT_EQ(vctree_get_data_marker_id_from_tree(target, id), 0);
  EXPECT_EQ(id, 77);
  EXPECT_EQ(text(target), "<B PlotObjUID=\"5\"/>");
  EXPECT_EQ(vctree_get_data_marker_id_from_tree(source, id), 1);
  EXPECT_EQ(id, 4);
  vctree_set_plot_uid_to_tree(source, 0);
  vctree_set_data_marker_id_to_tree(target, 6);
  EXPECT_EQ(vctree_copy_plot_uid_from_tree_to_tree(target, source), 1);
  EXPECT_EQ(text(target), "<B PlotObjUID=\"0\" DataMarkerID=\"6\"/>");
}
