#include <rytree_Utils/paths.h>

#include "tests/search_model.h"

namespace {

using Text = const char*;

TEST(Rows, of_paths) {
  RYXmlWrapperBase tree = parse("<A><B><D/></B><C/><b><E/></b><C><F/></C><É.x/><G><H/></G></A>");
  const Rows<Text, int> rows = {{"A", 1},      {"A.B.D", 3}, {"a.c", 4},    {"A.b.E", -1},
                                {"B.D", -1},   {"", -1},     {"A.", -1},    {"A.X", -1},
                                {"A.g.H", 11}, {".A", -1},   {"A.É.x", -1}, {"A.B.D.D", -1}};
  for (const auto& [path, row] : rows) EXPECT_EQ(rytree_get_row_number(&tree, path), row) << path;
}

int literal_level(CString& path, RYXmlWrapperBase node, RYXmlWrapperBase* root, bool stop) {
  int level = -1;
  std::string line;
  bool found = false;
  for (; !found && node.IsNodeValid() != 0; node.GetParent(node)) {
    line = tag(node) + "." + line;
    ++level;
    int option = 0;
    if (stop && root != nullptr) node.GetPropertyValue("EventRootOption", option);
    if (option == -1) return -1;
    if (option > 0) *root = node;
    found = option >= 0 && root != nullptr && *root == node;
  }
  if (root != nullptr && !found) return -1;
  path = line.c_str();
  path.TrimRight('.');
  return level;
}

TEST(Level, as_the_literal_walk_on_random_trees) {
  std::mt19937 random(3);
  for (int round = 0; round < 3000; ++round) {
    std::vector<RYXmlWrapperBase> nodes = alike_nodes(random, 12);
    RYXmlWrapperBase node = nodes[random() % 12];
    RYXmlWrapperBase root = round % 7 == 0 ? RYXmlWrapperBase() : nodes[random() % 12];
    RYXmlWrapperBase expected_root(root);
    CString path("old");
    CString expected("old");
    const bool no_root = round % 5 == 0;
    const int stop = round % 3;
    const int level = literal_level(expected, node, no_root ? nullptr : &expected_root, stop != 0);
    ASSERT_EQ(rytree_get_level(&path, &node, no_root ? nullptr : &root, stop), level) << text(nodes[0]);
    ASSERT_TRUE(path == expected && root == expected_root) << path << expected << text(nodes[0]);
    ASSERT_EQ(rytree_add_path_str(nodes.data(), "p", 1, 1), 1);
    ASSERT_TRUE(VCTreeGetPathStr(path, &node) && node.GetPropertyValue("p", expected) != 0);
    ASSERT_EQ(path, expected) << text(nodes[0]);
  }
}

TEST(Level, ends) {
  RYXmlWrapperBase tree = parse("<A><B. EventRootOption='2'><D.. EventRootOption='-2'/></B.></A>");
  RYXmlWrapperBase node = at(tree, {0, 0});
  CString path;
  EXPECT_TRUE(VCTreeGetPathStr(path, &node) && path == "A.B..D..");
  EXPECT_EQ(rytree_get_level(&path, &node, &node, 1), 1);
  EXPECT_TRUE(path == "B..D" && tag(node) == "B.");
}

TEST(PathAttribute, written_below_or_at_the_start) {
  const Rows<int, int, Text> rows = {{1, 0, "<A p='-'><B p='B'><D p='B.D'/></B><C p='C'/></A>"},
                                     {0, 1, "<A p='A'><B><D/></B><C/></A>"}};
  for (const auto& [recursive, self, expected] : rows) {
    RYXmlWrapperBase tree = parse("<A p='-'><B><D/></B><C/></A>");
    EXPECT_EQ(rytree_add_path_str(&tree, "p", recursive, self), 1);
    EXPECT_EQ(text(tree), text(parse(expected)));
  }
}

TEST(Names, labels_and_tags) {
  RYXmlWrapperBase tree = parse("<R><A Label=''><B Label='b'/></A><C/></R>");
  CString all;
  for (RYXmlWrapperBase node : {tree, at(tree, {0}), at(tree, {0, 0})})
    all += rytree_get_node_label(&node, true) + "," + rytree_get_node_label(&node, false) + ";";
  HostStringArray names;
  EXPECT_EQ(rytree_get_node_names(&tree, &names, 2) + rytree_get_node_names(&tree, &names, 0), 2);
  for (const CString& name : names.array()) all += name;
  EXPECT_EQ(all, "R,R;,A;b,B;ACABC");
}

TEST(Paths, bad_arguments) {
  RYXmlWrapperBase tree = parse("<R/>");
  RYXmlWrapperBase dead = dead_node();
  HostStringArray names;
  HostIntArray ints;
  for (RYXmlWrapperBase* const bad : {static_cast<RYXmlWrapperBase*>(nullptr), &dead}) {
    CString path("old");
    EXPECT_EQ(rytree_get_level(&path, bad, &tree, 1) + rytree_get_level(&path, bad, &dead, 0), -2);
    EXPECT_EQ(path, "old");
    EXPECT_EQ(rytree_get_level(&path, bad, nullptr, 1) + rytree_get_row_number(bad, "Gone"), -2);
    EXPECT_EQ(path, bad == nullptr ? "old" : "");
    path = "old";
    EXPECT_FALSE(VCTreeGetPathStr(path, bad) || rytree_add_path_str(bad, "p", 1, 1) != 0);
    EXPECT_TRUE(path.IsEmpty() && rytree_get_node_label(bad, true).IsEmpty());
    EXPECT_EQ(rytree_get_node_names(bad, &names, 0), bad == nullptr ? -1 : 1);
    vctree_get_node_names(bad, &names.array(), false);
  }
  EXPECT_EQ(rytree_get_row_number(&tree, nullptr) + rytree_get_level(nullptr, &tree, nullptr, 1), -2);
  EXPECT_EQ(rytree_add_path_str(&tree, nullptr, 1, 1) + rytree_add_path_str(&tree, "", 1, 1), 0);
  EXPECT_EQ(rytree_get_node_names(&tree, nullptr, 0) + rytree_get_node_names(&tree, &ints, 0), -2);
  EXPECT_EQ(rytree_add_path_str(&tree, "1 2", 1, 1), 1);
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
    EXPECT_TRUE(last.GetPropertyValue("p", path) != 0 && path == "Last");
  });
}

}  // namespace
