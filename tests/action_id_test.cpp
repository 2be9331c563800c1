#include <rytree_Utils/action_id.h>

#include "tree_text.h"

TEST(ActionId, OfARangeAndItsChildren) {
  RYXmlWrapperBase tree = parse("<C><A/><B _ACTION_OBJECT_ID='4'><X/></B></C>");
  RYXmlWrapperBase dead = dead_node();
  int id = 7;
  EXPECT_EQ(vctree_get_set_node_action_id(tree, id, 1), 0);
  EXPECT_EQ(vctree_get_set_node_action_id(tree, id, 0), 1);
  EXPECT_EQ(text(tree), text(parse("<C _ACTION_OBJECT_ID='7'><A/><B _ACTION_OBJECT_ID='4'><X/></B></C>")));
  EXPECT_EQ(VCTreeSetCompositeSubRangeNodeActionId(tree, 8, 0), 1);
  EXPECT_EQ(vctree_get_set_node_action_id(tree, id, 2), 1);
  EXPECT_EQ(id, 8);
  EXPECT_EQ(VCTreeSetCompositeSubRangeNodeActionId(tree, 9, 1), 1);
  EXPECT_EQ(text(tree), text(parse("<C _ACTION_OBJECT_ID='9'><A _ACTION_OBJECT_ID='1'/>"
                                   "<B _ACTION_OBJECT_ID='1'><X/></B></C>")));
  EXPECT_EQ(VCTreeSetCompositeSubRangeNodeActionId(dead, 7, 1), 0);
}
