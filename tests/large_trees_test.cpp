// Trees as deep as can be, on a small stack, and wide ones, whose cost grows in step with their size.
#include <rytree_Utils.h>

#include <climits>

#include "call_arguments.h"
#include "system/process.h"

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

TEST(WideTrees, CostInStepWithTheirSize) {
  constexpr int kCount = 100'000;
  constexpr int kVariables = 20'000;
  const double start = processor_seconds();
  RYXmlWrapperBase wide = parse("<R/>");
  RYXmlWrapperBase target = parse("<R/>");
  for (int i = 0; i < kCount; ++i) {
    RYXmlWrapperBase node;
    const std::string tag = i == 0 ? "N" : "N" + std::to_string(i);
    wide.AddTextNode(node, i % 3 == 0 ? "" : "7", tag.c_str(), -1, 0, nullptr);
    node.SetDataID(i);
  }
  EXPECT_EQ(rytree_whole_copy_values_by_id(&wide, &target), kCount);
  CString name;
  rytree_get_enum_node_name(&wide, &name, "n");
  EXPECT_STREQ(name, "n100000");
  target = parse("<R/>");
  rytree_nlsf_add_params_node_DataID(&target, kVariables);
  EXPECT_EQ(at(target, {2}).GetNodeCount(), kVariables);
  target = parse("<R/>");
  Ints methods("6", kVariables);
  for (int round = 0; round < 2; ++round)
    report_update_input_data_table(&target, 0, 1, kVariables, INT_MIN, nullptr, nullptr, 0, &methods, &wide,
                                   0);
  EXPECT_EQ(target.GetNodeCount(), kVariables);
  EXPECT_NE(text(at(target, {kVariables - 1, 5})).find(">7<"), std::string::npos);
  EXPECT_LT(processor_seconds() - start, 20);
}
