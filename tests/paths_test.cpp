#include <rytree_Utils/paths.h>

#include "search_model.h"

namespace {

using Text = const char*;

TEST(Rows, of_paths) {
  RYXmlWrapperBase tree = parse("<A><B><D/></B><C/><b><E/></b><C><F/></C><É.x/><G><H/></G></A>");
  const Rows<Text, int> rows = {{"A", 1},      {"A.B", 2},    {"A.B.D", 3}, {"a.c", 4},    {"A.b.E", -1},
                                {"A.C.F", -1}, {"B.D", -1},   {"", -1},     {"A.", -1},    {"A.X", -1},
                                {"A.G", 10},   {"A.g.H", 11}, {".A", -1},   {"A.É.x", -1}, {"A.B.D.D", -1}};
  for (const auto& [path, row] : rows) EXPECT_EQ(rytree_get_row_number(&tree, path), row) << path;
}

int literal_level(CString* path, RYXmlWrapperBase* node, RYXmlWrapperBase* root, int stop) {
  if (root == nullptr) stop = 0;
  int level = -1;
  CString line;
  CString name;
  bool found = false;
  RYXmlWrapperBase current(*node);
  for (; current.IsNodeValid() != 0; current.GetParent(current)) {
    current.GetTagName(name);
    line = name + "." + line;
    ++level;
    int option = 0;
    if (stop != 0) current.GetPropertyValue("EventRootOption", option);
    if (option == -1) return -1;
    if (option > 0) *root = current;
    found = option > 0 || (option == 0 && root != nullptr && *root == current);
    if (found) break;
  }
  if (root != nullptr && !found) return -1;
  line.TrimRight('.');
  *path = line;
  return level;
}

TEST(Level, as_the_literal_walk_on_random_trees) {
  std::mt19937 random(3);
  for (int round = 0; round < 3000; ++round) {
    const std::vector<RYXmlWrapperBase> nodes = alike_nodes(random, 12);
    RYXmlWrapperBase node = nodes[random() % 12];
    RYXmlWrapperBase root = round % 7 == 0 ? RYXmlWrapperBase() : nodes[random() % 12];
    RYXmlWrapperBase expected_root(root);
    CString path("old");
    CString expected("old");
    const bool no_root = round % 5 == 0;
    const int stop = round % 3;
    const int level = literal_level(&expected, &node, no_root ? nullptr : &expected_root, stop);
    ASSERT_EQ(rytree_get_level(&path, &node, no_root ? nullptr : &root, stop), level) << text(nodes[0]);
    ASSERT_EQ(path, expected) << text(nodes[0]);
    ASSERT_TRUE(root == expected_root);
  }
}

TEST(Level, ends) {
  RYXmlWrapperBase tree = parse("<A><B. EventRootOption='2'><D../></B.></A>");
  RYXmlWrapperBase node = at(tree, {0, 0});
  CString path("old");
  EXPECT_EQ(rytree_get_level(&path, &node, &node, 0), 0);
  EXPECT_EQ(rytree_get_level(&path, &node, nullptr, 1), 2);
  EXPECT_EQ(path, "A.B..D");
  EXPECT_EQ(rytree_get_level(&path, &node, &tree, 1), 1);
  EXPECT_EQ(tag(tree), "B.");
  EXPECT_TRUE(VCTreeGetPathStr(path, &node));
  EXPECT_EQ(path, "A.B..D..");
}

TEST(PathAttribute, written_below_and_at_the_start) {
  const Rows<int, int, Text> rows = {{1, 1, "<A p='A'><B p='A.B'><D p='A.B.D'/></B><C p='A.C'/></A>"},
                                     {1, 0, "<A p='-'><B p='B'><D p='B.D'/></B><C p='C'/></A>"},
                                     {0, 1, "<A p='A'><B><D/></B><C/></A>"},
                                     {0, 0, "<A p='-'><B><D/></B><C/></A>"}};
  for (const auto& [recursive, self, expected] : rows) {
    RYXmlWrapperBase tree = parse("<A p='-'><B><D/></B><C/></A>");
    EXPECT_EQ(rytree_add_path_str(&tree, "p", recursive, self), 1);
    EXPECT_EQ(text(tree), text(parse(expected)));
  }
  std::mt19937 random(5);
  std::vector<RYXmlWrapperBase> nodes = alike_nodes(random, 300);
  EXPECT_EQ(rytree_add_path_str(&nodes[0], "p", 1, 1), 1);
  for (RYXmlWrapperBase& node : nodes) {
    CString written;
    CString path;
    EXPECT_NE(node.GetPropertyValue("p", written), 0);
    EXPECT_TRUE(VCTreeGetPathStr(path, &node));
    EXPECT_EQ(written, path);
  }
}

TEST(Names, labels_and_tags) {
  RYXmlWrapperBase tree = parse("<R><A Label=''><B Label='b'/></A><C/></R>");
  const Rows<RYXmlWrapperBase, Text> labels = {{tree, "R"}, {at(tree, {0}), ""}, {at(tree, {0, 0}), "b"}};
  for (auto [node, label] : labels) {
    EXPECT_EQ(rytree_get_node_label(&node, true), label);
    EXPECT_EQ(rytree_get_node_label(&node, false), tag(node).c_str());
  }
  HostStringArray names;
  const Rows<RYXmlWrapperBase, int, Text> rows = {
      {tree, 1, "AC"}, {tree, 0, "ACABC"}, {at(tree, {1}), 1, "ACABC"}, {at(tree, {0}), 2, "ACABCB"}};
  for (auto [node, top, all] : rows) {
    EXPECT_EQ(rytree_get_node_names(&node, &names, top), 1);
    CString joined;
    for (const CString& name : names.array()) joined += name;
    EXPECT_EQ(joined, all);
  }
}

TEST(Paths, bad_arguments) {
  RYXmlWrapperBase tree = parse("<R/>");
  RYXmlWrapperBase dead = dead_node();
  HostStringArray names;
  HostIntArray ints;
  CString path;
  for (RYXmlWrapperBase* const bad : {static_cast<RYXmlWrapperBase*>(nullptr), &dead}) {
    path = "old";
    EXPECT_EQ(rytree_get_row_number(bad, "Gone"), -1);
    EXPECT_EQ(rytree_get_level(&path, bad, &tree, 1), -1);
    EXPECT_EQ(rytree_get_level(&path, bad, &dead, 0), -1);
    EXPECT_EQ(path, "old");
    EXPECT_EQ(rytree_get_level(&path, bad, nullptr, 1), -1);
    EXPECT_EQ(path, bad == nullptr ? "old" : "");
    path = "old";
    EXPECT_FALSE(VCTreeGetPathStr(path, bad));
    EXPECT_TRUE(path.IsEmpty());
    EXPECT_EQ(rytree_add_path_str(bad, "p", 1, 1), 0);
    EXPECT_TRUE(rytree_get_node_label(bad, true).IsEmpty());
    EXPECT_EQ(rytree_get_node_names(bad, &names, 0), bad == nullptr ? -1 : 1);
    vctree_get_node_names(bad, &names.array(), false);
  }
  EXPECT_EQ(rytree_get_row_number(&tree, nullptr), -1);
  EXPECT_EQ(rytree_get_level(nullptr, &tree, nullptr, 1), -1);
  EXPECT_EQ(rytree_add_path_str(&tree, nullptr, 1, 1) + rytree_add_path_str(&tree, "", 1, 1), 0);
  EXPECT_EQ(rytree_add_path_str(&tree, "1 2", 1, 1), 1);
  EXPECT_EQ(rytree_get_node_names(&tree, nullptr, 0) + rytree_get_node_names(&tree, &ints, 0), -2);
  vctree_get_node_names(&tree, nullptr, false);
  EXPECT_EQ(text(tree), "<R/>");
}

TEST(Paths, deep_trees) {
  on_small_stack([] {
    RYXmlWrapperBase tree = deep_tree(1024);
    tree.InsertNodeBefore(at(tree, {0}), "First", -1);
    tree.AddNode(tree, "Last", -1);
    RYXmlWrapperBase last(tree);
    tree.GetParent(tree);
    EXPECT_EQ(rytree_get_row_number(&tree, "L.Last"), 1026);
    CStringArray names;
    vctree_get_node_names(&tree, &names, false);
    EXPECT_EQ(names.GetSize(), 1025);
    EXPECT_EQ(rytree_add_path_str(&tree, "p", 1, 0), 1);
    CString path;
    EXPECT_NE(last.GetPropertyValue("p", path), 0);
    EXPECT_EQ(path, "Last");
  });
}

}  // namespace
