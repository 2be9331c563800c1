#include <rytree_Utils/bulk.h>
#include <rytree_Utils/frame.h>
#include <rytree_Utils/homologous.h>

#include <random>
#include <vector>

#include "tree_text.h"

namespace {

template <class Array>
Array list(const std::vector<typename std::remove_cvref_t<decltype(Array()[0])>>& items) {
  Array array;
  for (const auto& item : items) array.Add(item);
  return array;
}
using Ints = CArray<int, int>;

std::string joined(const CStringArray& texts) {
  std::string all;
  for (const CString& one : texts) all.append(one.View()).append(",");
  return all;
}
std::string joined(const Ints& numbers) {
  std::string all;
  for (const int number : numbers) all += std::to_string(number) + ",";
  return all;
}

TEST(Bulk, ListsAttributes) {
  const char* const xml =
      "<R k='r'><a k='a'><b/><c k='c'/><d><e/></d></a><f/><g k=''/><h/><i k='i'><j/><k k='k'/></i></R>";
  RYXmlWrapperBase tree = parse(xml);
  using List = int (*)(RYXmlWrapperBase*, CStringArray*, const char*, bool);
  const Rows<List, const char*, bool, const char*> rows = {
      {VCTreeGetAttributes, "k", false, "0,a,,c,,,,,,i,,k,"},
      {VCTreeGetAttributes, "k", true, "0,a,,,,i,"},
      {vctree_get_attributes, "k", false, "0,a,,c,c,,a,,,i,,k,"},
      {vctree_get_attributes, "k", true, "0,a,a,,,i,"},
      {vctree_get_attributes, nullptr, true, "0,,,,,,"},
  };
  for (const auto& [get, attribute, children_only, expected] : rows) {
    CStringArray values = list<CStringArray>({"0"});
    EXPECT_EQ(get(&tree, &values, attribute, children_only), 0);
    EXPECT_EQ(joined(values), expected);
  }
  HostStringArray values;
  HostIntArray ints;
  EXPECT_EQ(rytree_get_attributes(&tree, &values, "k", 2), 0);
  EXPECT_EQ(rytree_get_attributes(&tree, &values, "k", 0), 0);
  EXPECT_EQ(joined(values.array()), "a,,,,i,a,,c,,,,,,i,,k,");
  EXPECT_EQ(rytree_get_attributes(&tree, &ints, "k", 0), -1);
  EXPECT_EQ(rytree_get_attributes(nullptr, &values, "k", 0), -1);
  EXPECT_EQ(vctree_get_attributes(&tree, nullptr, "k", false), -1);
}

TEST(Bulk, CollectsWritesAndRemovesInts) {
  const char* const xml = "<R k=\"1\"><a k=\"2\"><b/><c k=\"x\"/></a><d k=\"-1\"/></R>";
  const char* const all_minus = "<a k=\"-1\"><b k=\"-1\"/><c k=\"-1\"/></a><d k=\"-1\"/></R>";
  struct Case {
    int value;
    bool collects;
    int remove;
    int top;
    std::string after;
    const char* collected;
  };
  const Case cases[] = {
      {-1, true, 1, 0, xml, "9,2,-1,-1,-1,"},
      {5, true, 0, 1, xml, "9,1,2,-1,-1,-1,"},
      {-1, false, 0, 0, std::string("<R k=\"1\">") + all_minus, "9,"},
      {-1, false, 0, 7, std::string("<R k=\"-1\">") + all_minus, "9,"},
      {-1, false, 1, 1, "<R><a><b/><c/></a><d/></R>", "9,"},
      {0, false, 1, 0, "<R k=\"1\"><a k=\"0\"><b k=\"0\"/><c k=\"0\"/></a><d k=\"0\"/></R>", "9,"},
  };
  for (const Case& row : cases) {
    RYXmlWrapperBase tree = parse(xml);
    Ints collected = list<Ints>({9});
    EXPECT_EQ(VCTreeAttributeValues(&tree, "k", row.value, row.collects ? &collected : nullptr, row.remove,
                                    row.top),
              0);
    EXPECT_EQ(text(tree), row.after);
    EXPECT_EQ(joined(collected), row.collected);
  }
  RYXmlWrapperBase tree = parse(xml);
  HostStringArray strings;
  HostIntArray ints;
  EXPECT_EQ(rytree_attribute_values(&tree, "k", 5, &ints, 0), 0);
  EXPECT_EQ(joined(ints.array()), "2,-1,-1,-1,");
  EXPECT_EQ(rytree_attribute_values(&tree, "k", -5, &strings, 1), 0);
  EXPECT_EQ(text(tree), "<R k=\"1\"><a><b/><c/></a><d/></R>");
  EXPECT_EQ(rytree_attribute_values(nullptr, "k", -5, nullptr, 1), -1);
}

TEST(Bulk, WritesLeavesByNodeId) {
  const char* const xml =
      "<R NodeID='1'><a NodeID='1'>t<b NodeID='2'/><c NodeID='1'>o</c></a><d NodeID='1'/><e/><f "
      "NodeID='x'/></R>";
  const Rows<std::vector<int>, std::vector<CString>, int, const char*> rows = {
      {{1, 2}, {"A", "B"}, 3, ",,B,A,A,,,"},
      {{2, 1, 2}, {"A", "", "C"}, 3, ",,A,,,,,"},
      {{0, 3, -1}, {"A", "B", "C"}, 0, ",,,o,,,,"},
      {{}, {"A"}, -2, ",,,o,,,,"},
      {{1}, {}, -2, ",,,o,,,,"},
      {{1}, {"A", "B"}, -3, ",,,o,,,,"},
  };
  for (const auto& [id_list, texts, result, expected] : rows) {
    RYXmlWrapperBase tree = parse(xml);
    HostIntArray ids;
    HostStringArray values;
    ids.array() = list<Ints>(id_list);
    values.array() = list<CStringArray>(texts);
    EXPECT_EQ(rytree_set_values_by_nodeids(&tree, &ids, &values), result);
    CStringArray after;
    VCTreeGetValues(&tree, &after, false);
    EXPECT_EQ(joined(after), expected);
    EXPECT_EQ(rytree_set_values_by_nodeids(&tree, &ids, &ids), -1);
  }
  RYXmlWrapperBase tree = parse(xml);
  RYXmlWrapperBase dead = dead_node();
  CStringArray values = list<CStringArray>({"A"});
  HostStringArray strings;
  EXPECT_EQ(vctree_set_values_by_nodeids(&dead, nullptr, &values), -1);
  EXPECT_EQ(vctree_set_values_by_nodeids(&tree, nullptr, &values), -2);
  EXPECT_EQ(rytree_set_values_by_nodeids(&tree, nullptr, &strings), -2);
}

TEST(Bulk, SetsAttributesByIds) {
  const char* const xml =
      "<R><a DataID=\"1\"><b DataID=\"2\"/></a><c DataID=\"02\" k=\"2\"/><d DataID=\"1\"/></R>";
  const Rows<std::vector<int>, const char*, const char*, const char*, bool, bool, const char*> rows = {
      {{1},
       "v",
       nullptr,
       nullptr,
       true,
       true,
       "<R><a DataID=\"1\" Show=\"v\"><b DataID=\"2\"/></a><c DataID=\"02\" k=\"2\"/><d DataID=\"1\" "
       "Show=\"v\"/></R>"},
      {{1, 2, 5},
       nullptr,
       "w",
       nullptr,
       true,
       false,
       "<R><a DataID=\"1\" w=\"\"><b DataID=\"2\" w=\"\"/></a><c DataID=\"02\" k=\"2\"/><d DataID=\"1\" "
       "w=\"\"/></R>"},
      {{5, 2},
       "v",
       "w",
       "k",
       false,
       true,
       "<R><a DataID=\"1\"><b DataID=\"2\"/></a><c DataID=\"02\" k=\"2\" w=\"v\"/><d DataID=\"1\"/></R>"},
      {{1, 2}, "v", "w", "", true, false, xml},
      {{}, "v", nullptr, nullptr, true, false, xml},
  };
  for (const auto& [id_list, value, attribute, match, recursive, result, expected] : rows) {
    RYXmlWrapperBase tree = parse(xml);
    HostIntArray ids;
    ids.array() = list<Ints>(id_list);
    EXPECT_EQ(rytree_set_attributes(&tree, &ids, value, attribute, match, recursive), result);
    EXPECT_EQ(text(tree), expected);
    EXPECT_FALSE(rytree_set_attributes(&tree, nullptr, value, attribute, match, recursive));
    EXPECT_FALSE(rytree_set_attributes(nullptr, &ids, value, attribute, match, recursive));
  }
}

TEST(Bulk, SetsAttributesAsMatchingFromATreeOfIdsDoes) {
  std::mt19937 random(5);
  const auto below = [&](std::size_t bound) { return static_cast<int>(random() % bound); };
  const char* const names[] = {"Show", "DataID", "k", ""};
  for (int round = 0; round < 2000; ++round) {
    const char* const attribute = names[below(3)];
    const char* const match = names[below(4)];
    const bool recursive = below(3) != 0;
    RYXmlWrapperBase tree = parse("<R/>");
    RYXmlWrapperBase source = parse("<S/>");
    std::vector<RYXmlWrapperBase> nodes{tree};
    for (int count = below(12); count > 0; --count) {
      RYXmlWrapperBase node;
      nodes[static_cast<std::size_t>(below(nodes.size()))].AddNode(node, "n", -1);
      if (below(5) != 0) node.SetPropertyValue(match, below(4));
      nodes.push_back(node);
    }
    Ints ids;
    for (int count = below(5); count > 0; --count) {
      RYXmlWrapperBase leaf;
      source.AddTextNode(leaf, "2", "n", -1, 0, nullptr);
      leaf.SetPropertyValue(match, ids[ids.Add(below(4))]);
    }
    RYXmlWrapperBase expected;
    tree.Clone(expected, 1);
    const int result = rytree_copy_values_to_attributes_by_attribute_matching(
        &source, &expected, attribute, match, nullptr, recursive, 1, 0);
    EXPECT_EQ(VCTreeSetAttributes(&tree, &ids, "2", attribute, match, recursive), result != 0);
    ASSERT_EQ(text(tree), text(expected)) << round;
  }
}

}  // namespace
