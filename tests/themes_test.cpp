#include <rytree_Utils/themes.h>

#include <unistd.h>

#include <climits>
#include <filesystem>
#include <random>
#include <vector>

#include "themes/hidden_values.h"
#include "tree_text.h"

namespace {

/// The arrays of a call, inside host objects.
struct Pairs {
  HostIntArray ids;
  HostStringArray values;

  Pairs() = default;
  Pairs(const std::vector<int>& numbers, const std::vector<const char*>& texts) {
    for (const int number : numbers) ids.array().Add(number);
    for (const char* const string : texts) values.array().Add(string);
  }
  std::string shown() {
    std::string all;
    for (const int id : ids.array()) all += std::to_string(id) + ' ';
    for (const CString& value : values.array()) all += '[' + std::string(value.View()) + ']';
    return all;
  }
};

constexpr const char* kTheme =
    "<Settings _NodeID=\"0\" Comment=\"c\">Settings<node51>a</node51><node-3/><node51>ü</node51></Settings>";

struct TestFile {
  std::string name = testing::TempDir() + "themes_test_" + std::to_string(getpid()) + ".xml";
  ~TestFile() { std::filesystem::remove(name); }
};

TEST(Theme, replaces_what_the_node_held) {
  Pairs pairs({51, -3, 51}, {"a", "", "ü"});
  for (RYXmlWrapperBase target : {RYXmlWrapperBase(), dead_node()}) {
    EXPECT_TRUE(rytree_set_theme(&target, &pairs.ids, &pairs.values, "c"));
    EXPECT_EQ(text(target), kTheme);
  }
  RYXmlWrapperBase tree = parse("<R><A Comment=\"x\" DataID=\"1\">t<node1/></A><B/></R>");
  RYXmlWrapperBase node = at(tree, {0});
  EXPECT_TRUE(vctree_set_theme(&node, &pairs.ids.array(), &pairs.values.array(), "c"));
  EXPECT_EQ(text(tree), "<R>" + std::string(kTheme) + "<B/></R>");
  Pairs labels({}, {"L", ""});
  EXPECT_TRUE(rytree_save_values_with_ids(&node, &pairs.ids, &pairs.values, "", &labels.values));
  EXPECT_EQ(text(node),
            "<Settings _NodeID=\"0\" Comment=\"\">Settings"
            "<node51 Label=\"L\">a</node51><node-3 Label=\"\"/><node51>ü</node51></Settings>");
}

TEST(Theme, refuses_arrays_that_do_not_fit) {
  const Rows<std::vector<int>, std::vector<const char*>> rows = {
      {{}, {}}, {{}, {"a"}}, {{1}, {}}, {{1, 2}, {"a"}}};
  for (const auto& [ids, values] : rows) {
    Pairs bad(ids, values);
    RYXmlWrapperBase node = parse("<A Use=\"1\">t<B/></A>");
    RYXmlWrapperBase invalid;
    EXPECT_FALSE(rytree_set_theme(&node, &bad.ids, &bad.values, "c") ||
                 rytree_set_theme(&invalid, &bad.ids, &bad.values, "c") || invalid.IsNodeValid());
    EXPECT_EQ(text(node), "<A Use=\"1\">t<B/></A>");
  }
  Pairs pairs({1}, {"a"});
  RYXmlWrapperBase bottom = deep_tree(1024);
  for (int level = 1; level < 1024; ++level) bottom.FirstChild(bottom);
  EXPECT_FALSE(rytree_set_theme(&bottom, &pairs.ids, &pairs.values, "c"));
  EXPECT_EQ(text(bottom), "<Settings _NodeID=\"0\">Settings</Settings>");
}

TEST(Theme, read_from_any_branch) {
  RYXmlWrapperBase theme = parse(
      "<Any><node>a</node><node12x>b</node12x><Foo>c</Foo><xnode7/><Node8/><node-3>d<node4>e</node4></node-3>"
      "<node99999999999/><node-99999999999/></Any>");
  Pairs pairs({7}, {"first"});
  CString comment("stays");
  EXPECT_TRUE(rytree_get_theme(&theme, &pairs.ids, &pairs.values, &comment));
  EXPECT_EQ(pairs.shown(), "7 0 12 0 0 0 -3 2147483647 -2147483648 [first][a][b][c][][][d][][]");
  EXPECT_EQ(comment, "stays");
  theme = parse("<T Comment=\"new\"/>");
  vctree_get_theme(&theme, &pairs.ids.array(), &pairs.values.array(), &comment);
  EXPECT_EQ(comment, "new");
  EXPECT_EQ(pairs.ids.array().GetSize(), 9);
}

TEST(HiddenValues, reset_by_node_id) {
  const std::string xml =
      "<R><A _NodeID=\"10\" DataID=\"3\">5</A><B _NodeID=\"13\" DataID=\"4\">x</B>"
      "<C _NodeID=\"268435456\" DataID=\"5\" Use=\"1\"><D _NodeID=\"10\" DataID=\"3\">6</D></C>"
      "<E _NodeID=\"268435456\" DataID=\"6\" Use=\"x\"/><F _NodeID=\"11\" DataID=\"6\" Show=\"0\">7</F>"
      "<G _NodeID=\"10\" DataID=\"0\">8</G><H DataID=\"6\">9</H><I _NodeID=\"10\">1</I></R>";
  const std::string reset =
      "<R><A _NodeID=\"10\" DataID=\"3\">0</A><B _NodeID=\"13\" DataID=\"4\">0</B>"
      "<C _NodeID=\"268435456\" DataID=\"5\" Use=\"\"><D _NodeID=\"10\" DataID=\"3\">";
  const std::string within =
      "<R><A _NodeID=\"10\" DataID=\"3\">0</A><B _NodeID=\"13\" DataID=\"4\">x</B>"
      "<C _NodeID=\"268435456\" DataID=\"5\" Use=\"1\"><D _NodeID=\"10\" DataID=\"3\">0";
  const Rows<std::vector<int>, bool, int, std::string> rows = {
      {{3}, true, 2, within + xml.substr(xml.find("</D>"))},
      {{-1, 0, 3, 4, 5, 6}, true, 7, reset + '0' + xml.substr(xml.find("</D>"))},
      {{-1, 0, 3, 4, 5, 6}, false, 6, reset + '6' + xml.substr(xml.find("</D>"))},
      {{7, 3, 4, 5, 6}, true, 0, xml},
      {{}, true, 0, xml}};
  for (const auto& [list, recursive, count, after] : rows) {
    RYXmlWrapperBase tree = parse(xml);
    Pairs pairs(list, {});
    EXPECT_EQ(rytree_GETN_reset_hidden_values(&tree, &pairs.ids, recursive), count);
    EXPECT_EQ(text(tree), after);
  }
}

TEST(HiddenValues, search_is_a_scan_that_gives_up) {
  std::mt19937 random(20240607);
  for (int round = 0; round < 300; ++round) {
    CArray<int, int> list;
    for (int i = 0; i < round % 13; ++i) list.Add(static_cast<int>(random() % 10) + i * (round % 2));
    const SortedIds ids(list);
    for (int id = -1; id < 24; ++id) {
      int place = 0;
      while (place < list.GetSize() && list[place] < id) ++place;
      const int expected = place < list.GetSize() && list[place] == id ? place : -1;
      ASSERT_EQ(vctree_sorted_id_index(id, ids), expected) << "round " << round << ", ID " << id;
    }
  }
}

TEST(SavedValues, come_back_from_a_file) {
  const TestFile file;
  const char* const path = file.name.c_str();
  Pairs pairs({5, INT_MIN, 5}, {"a\n b", "", "日本"});
  Pairs back({1, 2}, {"x"});
  CString comment("stays");
  EXPECT_FALSE(rytree_tree_read_values_with_ids(path, &back.ids, &back.values, &comment));
  EXPECT_EQ(back.shown(), "");
  EXPECT_TRUE(rytree_tree_save_values_with_ids(path, &pairs.ids, &pairs.values, nullptr, &pairs.values));
  for (const char* const expected : {"stays", "saved"}) {
    EXPECT_TRUE(rytree_tree_read_values_with_ids(path, &back.ids, &back.values, &comment));
    EXPECT_EQ(back.shown(), "5 -2147483648 5 [a\n b][][日本]");
    EXPECT_EQ(comment, expected);
    EXPECT_TRUE(
        vctree_save_values_with_ids(path, &pairs.ids.array(), &pairs.values.array(), "saved", nullptr));
  }
}

TEST(SavedValues, files_that_fail_and_files_of_another_kind) {
  const TestFile file;
  const std::string nowhere = testing::TempDir() + "no such folder/themes_test.xml";
  Pairs pairs({1}, {"a"});
  CArray<int, int>* const ids = &pairs.ids.array();
  CStringArray* const values = &pairs.values.array();
  for (const char* const path : {static_cast<const char*>(nullptr), "", nowhere.c_str()}) {
    EXPECT_FALSE(vctree_save_values_with_ids(path, ids, values, "c", nullptr));
  }
  EXPECT_FALSE(vctree_save_values_with_ids(file.name.c_str(), ids, nullptr, "c", nullptr));
  EXPECT_FALSE(std::filesystem::exists(file.name));
  parse("<Any><node7 Label=\"L\">b</node7><x/></Any>").Save(file.name.c_str());
  EXPECT_TRUE(vctree_read_values_with_ids(file.name.c_str(), ids, values, nullptr));
  EXPECT_EQ(pairs.shown(), "7 0 [b][]");
  EXPECT_FALSE(vctree_read_values_with_ids(nullptr, ids, values, nullptr));
  EXPECT_EQ(pairs.shown(), "");
}

TEST(SavedValues, stops_of_the_plain_layer) {
  const TestFile file;
  const char* const path = file.name.c_str();
  RYXmlWrapperBase dead = dead_node();
  Pairs good({1}, {"a"});
  HostIntArray* const ints = &good.ids;
  HostStringArray* const strings = &good.values;
  HostStringArray none;
  // The order of the tests counts: an array object of the wrong kind is found behind the null pointers.
  const Rows<const char*, HostArrayObject*, HostArrayObject*, HostArrayObject*, bool> rows = {
      {nullptr, ints, ints, ints, false},   {"", ints, ints, ints, false},
      {path, nullptr, ints, ints, false},   {path, ints, nullptr, ints, false},
      {path, ints, ints, strings, true},    {path, ints, strings, nullptr, true},
      {path, ints, strings, ints, true},    {path, strings, strings, strings, false},
      {path, strings, strings, ints, true}, {path, ints, &none, strings, false}};
  for (const auto& [name, ids, values, labels, result] : rows) {
    RYXmlWrapperBase node = parse("<A/>");
    RYXmlWrapperBase* const target = name == path ? &node : nullptr;
    EXPECT_EQ(rytree_tree_save_values_with_ids(name, ids, values, "c", labels), result);
    EXPECT_EQ(rytree_save_values_with_ids(target, ids, values, "c", labels), result);
    EXPECT_TRUE(text(node) == "<A/>" && !std::filesystem::exists(path));
  }
  const Rows<bool, bool> results = {
      {rytree_save_values_with_ids(&dead, ints, strings, "c", strings), false},
      {vctree_save_values_with_ids(&dead, &good.ids.array(), &good.values.array(), "c", nullptr), false},
      {rytree_set_theme(nullptr, nullptr, ints, "c"), true},
      {rytree_set_theme(&dead, strings, strings, "c"), false},
      {rytree_set_theme(nullptr, ints, strings, "c"), false},
      {rytree_get_theme(nullptr, ints, strings, nullptr), true},
      {rytree_get_theme(&dead, nullptr, ints, nullptr), true},
      {rytree_GETN_reset_hidden_values(nullptr, ints, true) != 0, false},
      {rytree_GETN_reset_hidden_values(&dead, strings, true) != 0, false},
      {rytree_tree_read_values_with_ids(nullptr, ints, strings, nullptr), false},
      {rytree_tree_read_values_with_ids(path, ints, ints, nullptr), true}};
  for (const auto& [result, expected] : results) EXPECT_EQ(result, expected);
  EXPECT_EQ(good.shown(), "1 [a]");
  EXPECT_FALSE(rytree_tree_read_values_with_ids(path, strings, strings, nullptr));
  EXPECT_EQ(good.shown(), "1 ");
}

TEST(ThemeAttributes, type_and_file_name) {
  RYXmlWrapperBase node = parse("<A/>");
  CString file("x");
  EXPECT_FALSE(rytree_tree_get_theme_file_name(nullptr, &file) ||
               rytree_tree_get_theme_file_name(&node, nullptr));
  EXPECT_TRUE(rytree_tree_get_theme_type(nullptr) == 0 && file == "x");
  const Rows<const char*, const char*, int> rows = {{nullptr, "<A/>", 4},
                                                    {"f", "<A ThemeFile=\"f\"/>", 4},
                                                    {"", "<A ThemeFile=\"\" ThemeType=\"7\"/>", 7},
                                                    {nullptr, "<A ThemeType=\"7\"/>", 7}};
  for (const auto& [name, xml, type] : rows) {
    EXPECT_TRUE(rytree_tree_set_theme_file_name(&node, name));
    if (type == 7) node.SetPropertyValue("ThemeType", 7);
    EXPECT_EQ(text(node), xml);
    EXPECT_EQ(rytree_tree_get_theme_type(&node), type);
    EXPECT_EQ(rytree_tree_get_theme_file_name(&node, &file), name != nullptr);
    EXPECT_EQ(file, name == nullptr ? "" : name);
  }
  EXPECT_FALSE(rytree_tree_set_theme_file_name(nullptr, "f"));
}

}  // namespace
