// Walks over trees as deep as can be fit in a small stack.
#include <rytree_Utils.h>

#include "call_arguments.h"

TEST(DeepTrees, AreWalkedOnASmallStack) {
  on_small_stack([] {
    RYXmlWrapperBase tree = deep_tree(1024);
    RYXmlWrapperBase target = deep_tree(1024);
    RYXmlWrapperBase leaf(tree);
    RYXmlWrapperBase out;
    Strings names("k");
    for (int id = 0; id < 1023; ++id, leaf.FirstChild(leaf)) leaf.SetDataID(id);
    leaf.SetDataID(1023);
    EXPECT_EQ(rytree_get_node_ex(&tree, &out, 1022, 0, nullptr), 1);
    EXPECT_EQ(out, leaf);
    EXPECT_EQ(rytree_get_node_by_id(&tree, &out, 1023, true), 1);
    EXPECT_EQ(rytree_find_node(&tree, &out, "DataID", 1023, true, 0, -1), 1);
    EXPECT_TRUE(rytree_get_node_by_tagname(&tree, &out, "l", true, false, true));
    EXPECT_EQ(rytree_tree_check_get_node(&out, &leaf, "L", 0, nullptr, nullptr, 1), 0);
    EXPECT_EQ(rytree_find_node_with_str_attr(&tree, &out, &names, &names, 1, 0), 0);
    EXPECT_EQ(rytree_filter_by_attrib_find(&target, 1, "k", "", 0, 0), 1);
    EXPECT_EQ(rytree_whole_copy_values_by_id(&tree, &target), 1023);
    EXPECT_EQ(target.GetNodeCount(), 1025);
    EXPECT_EQ(rytree_copy_values_by_id(&tree, &tree, 0, nullptr, nullptr, 1, 0, 0), 1023);
    EXPECT_EQ(rytree_remove_unchange_nodes_by_id(&tree, &tree, nullptr, nullptr), 1023);
    EXPECT_EQ(rytree_add_path_str(&target, "p", 1, 0), 1);
    EXPECT_EQ(text(at(target, {1})), "<L Label=\"\" DataID=\"0\" p=\"L\"/>");
  });
}
