#include <rytree_Utils/date_node.h>

#include "tree_text.h"

TEST(DateNode, Set) {
  RYXmlWrapperBase node = parse("<D _NodeID='3'>x</D>");
  EXPECT_NE(rytree_set_date_node(&node, 2.5), 0);
  EXPECT_EQ(text(node), "<D _NodeID=\"14\" NumFormat=\"D9\">2.5</D>");
  EXPECT_EQ(rytree_set_date_node(nullptr, 1), 0);
}
