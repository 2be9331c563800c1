#include <rytree_Utils/themes.h>

#include <unistd.h>

#include <climits>
#include <filesystem>

#include "call_arguments.h"

namespace {

/// The arrays of a call, inside host objects.
struct Pairs {
  Pairs(Text id_list, Text value_list) : ids(id_list), values(value_list) {}
  std::string shown() { return list_of(ids.array()) + " | " + list_of(values.array()); }

  Ints ids;
  Strings values;
};

TEST(Theme, ReplacesWhatTheNodeHeld) {
  Pairs pairs("51,-3,51", "a,,ü");
  Strings labels("L,");
  RYXmlWrapperBase tree = parse("<R><A Comment='x' DataID='1'>t<node1/></A><B/></R>");
  for (RYXmlWrapperBase target : {RYXmlWrapperBase(), dead_node(), at(tree, {0})}) {
    EXPECT_TRUE(rytree_set_theme(&target, &pairs.ids, &pairs.values, "c"));
    EXPECT_EQ(text(target), R"(<Settings _NodeID="0" Comment="c">Settings)"
                            "<node51>a</node51><node-3/><node51>ü</node51></Settings>");
  }
  RYXmlWrapperBase node = at(tree, {0});
  EXPECT_TRUE(rytree_save_values_with_ids(&node, &pairs.ids, &pairs.values, "", &labels));
  EXPECT_EQ(text(tree), R"(<R><Settings _NodeID="0" Comment="">Settings<node51 Label="L">a</node51>)"
                        R"(<node-3 Label=""/><node51>ü</node51></Settings><B/></R>)");
}

TEST(Theme, RefusesArraysThatDoNotFit) {
  for (const auto& [ids, values] : Rows<Text, Text>{{"", ""}, {"1", "a,b"}, {"1,2", "a"}}) {
    Pairs bad(ids, values);
    RYXmlWrapperBase node = parse("<A Use=\"1\">t<B/></A>");
    EXPECT_FALSE(rytree_set_theme(&node, &bad.ids, &bad.values, "c"));
    EXPECT_EQ(text(node), "<A Use=\"1\">t<B/></A>");
  }
  Pairs pairs("1", "a");
  RYXmlWrapperBase bottom = deep_tree(1024);
  while (bottom.HasChildren(0) != 0) bottom.FirstChild(bottom);
  EXPECT_FALSE(rytree_set_theme(&bottom, &pairs.ids, &pairs.values, "c"));
}

TEST(Theme, ReadFromAnyBranch) {
  RYXmlWrapperBase theme = parse(
      "<Any><node>a</node><node12x>b</node12x><Foo>c</Foo><xnode7/><Node8/><node-3>d<node4>e</node4></node-3>"
      "<node99999999999/><node-99999999999/></Any>");
  Pairs pairs("7", "first");
  EXPECT_TRUE(rytree_get_theme(&theme, &pairs.ids, &pairs.ids, nullptr));
  EXPECT_TRUE(rytree_get_theme(&theme, &pairs.values, &pairs.values, nullptr));
  EXPECT_TRUE(rytree_get_theme(nullptr, &pairs.ids, &pairs.values, nullptr));
  EXPECT_TRUE(rytree_get_theme(&theme, &pairs.ids, &pairs.values, nullptr));
  EXPECT_EQ(pairs.shown(), "7,0,12,0,0,0,-3,2147483647,-2147483648 | first,a,b,c,,,d,,");
}

TEST(SavedValues, ComeBackFromAFile) {
  const std::string name = testing::TempDir() + "themes_test_" + std::to_string(getpid()) + ".xml";
  const Text path = name.c_str();
  Pairs pairs("5,-2147483648,5", "a\n b,,日本");
  Pairs back("1,2", "x");
  CString comment("stays");
  EXPECT_FALSE(rytree_tree_read_values_with_ids(path, &back.ids, &back.values, &comment));
  EXPECT_EQ(back.shown(), " | ");
  for (const Text saved : {static_cast<Text>(nullptr), "saved"}) {
    EXPECT_TRUE(rytree_tree_save_values_with_ids(path, &pairs.ids, &pairs.values, saved, &pairs.values));
    EXPECT_TRUE(rytree_tree_read_values_with_ids(path, &back.ids, &back.values, &comment));
    EXPECT_EQ(back.shown(), "5,-2147483648,5 | a\n b,,日本");
    EXPECT_EQ(comment, saved == nullptr ? "stays" : saved);
  }
  std::filesystem::remove(name);
}

TEST(SavedValues, StopsOfThePlainLayer) {
  const std::string nowhere = testing::TempDir() + "no such folder/themes_test.xml";
  const Text path = nowhere.c_str();
  RYXmlWrapperBase node = parse("<A/>");
  Strings none;
  Pairs good("1", "a");
  Ints* const ids = &good.ids;
  Strings* const values = &good.values;
  const auto save = rytree_save_values_with_ids;
  const auto save_file = rytree_tree_save_values_with_ids;
  EXPECT_EQ(with_bad(save, &node, ids, &none, "c", &none), "0 0,0 0,0 1,0,1 1");
  EXPECT_EQ(with_bad(save_file, path, ids, &none, "c", &none), "0,0 0,0 1,0,1 1");
  // An array of the wrong kind in the place of each argument that comes after a null pointer.
  EXPECT_EQ(with_bad(save, &node, values, ids, "c", ids), "0 0,0 1,0 1,1,1 1");
  EXPECT_EQ(with_bad(save_file, path, values, ids, "c", ids), "0,0 1,0 1,1,1 1");
  EXPECT_FALSE(save_file("", values, ids, "c", ids));
  EXPECT_FALSE(save_file(path, ids, values, "c", values));
  EXPECT_EQ(text(node), "<A/>");
  node = dead_node();
  EXPECT_FALSE(vctree_save_values_with_ids(&node, &ids->array(), &values->array(), "c", nullptr));
  EXPECT_EQ(with_bad(rytree_set_theme, &node, ids, &none, "c"), "0 0,0 0,1 1,0");
  EXPECT_EQ(with_bad(rytree_set_theme, &node, values, ids, "c"), "1 1,1 1,1 1,1");
  EXPECT_FALSE(vctree_set_theme(&node, &ids->array(), nullptr, "c"));
  EXPECT_FALSE(rytree_set_theme(nullptr, ids, values, "c"));
  EXPECT_EQ(good.shown(), "1 | a");
  EXPECT_EQ(with_bad(rytree_tree_read_values_with_ids, path, ids, values, nullptr), "0,0 0,1 1,0");
  EXPECT_EQ(good.shown(), " | ");
}

TEST(ThemeAttributes, TypeAndFileName) {
  RYXmlWrapperBase node = parse("<A ThemeType='7'/>");
  EXPECT_EQ(rytree_tree_get_theme_type(&node), 7);
  CString file;
  for (const Text name : {"", "f", static_cast<Text>(nullptr)}) {
    EXPECT_TRUE(rytree_tree_set_theme_file_name(&node, name));
    EXPECT_EQ(rytree_tree_get_theme_file_name(&node, &file), name != nullptr);
    EXPECT_EQ(file, name == nullptr ? "" : name);
    EXPECT_EQ(text(node), name == nullptr ? R"(<A ThemeType="7"/>)"
                                          : "<A ThemeType=\"7\" ThemeFile=\"" + std::string(name) + "\"/>");
  }
  EXPECT_EQ(with_bad(rytree_tree_get_theme_type, &node), "0 4");
  EXPECT_EQ(with_bad(rytree_tree_set_theme_file_name, &node, "f"), "0 1,1");
  EXPECT_EQ(with_bad(rytree_tree_get_theme_file_name, &node, &file), "0 0,0");
}

}  // namespace
