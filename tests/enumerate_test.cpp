// Enumerated names and nodes.
#include <rytree_Utils/enumerate.h>

#include <chrono>
#include <climits>

#include "tests/tree_text.h"

namespace {

TEST(EnumNames, FirstFreeNumber) {
  const Rows<const char*, const char*, const char*> rows = {
      {"<R/>", "Item", "Item"},
      {"<R><Item/><Item1/></R>", "Item", "Item2"},
      {"<R><item1/></R>", "Item", "Item"},
      {"<R><ITEM/><item1/><Item3/></R>", "Item", "Item2"},
      {"<R><a><Item/></a></R>", "Item", "Item"},
      {"<R><é/></R>", "É", "É1"},
  };
  for (const auto& [xml, prefix, wanted] : rows) {
    RYXmlWrapperBase tree = parse(xml);
    CString name("old");
    rytree_get_enum_node_name(&tree, &name, prefix);
    EXPECT_STREQ(name, wanted) << xml;
  }
  CString name("old");
  rytree_get_enum_node_name(nullptr, &name, "X");
  EXPECT_STREQ(name, "X");
  rytree_get_enum_node_name(nullptr, &name, nullptr);
  EXPECT_STREQ(name, "X");
  rytree_get_enum_node_name(nullptr, nullptr, "X");
}

TEST(EnumNames, FirstFreeAttributeValue) {
  const Rows<const char*, const char*, const char*> rows = {
      {"<R><a k=\"Fit.txt\"/><b k=\"fit1.TXT\"/></R>", ".txt", "Fit2"},
      {"<R><a k=\"Fit\"/><b k=\"Fit1\"/></R>", ".txt", "Fit"},
      {"<R><a k=\"Fit\"/><b/><c k=\"Fit1\"/></R>", nullptr, "Fit2"},
      {"<R><a><b k=\"Fit\"/></a></R>", "", "Fit"},
  };
  for (const auto& [xml, suffix, wanted] : rows) {
    RYXmlWrapperBase tree = parse(xml);
    CString value;
    rytree_get_enum_attribute_value(&tree, &value, "k", "Fit", suffix);
    EXPECT_STREQ(value, wanted) << xml;
  }
}

std::string children(const char* from, int count) {
  std::string xml = "<R>";
  for (int i = 0; i < count; ++i) xml += "<" + std::string(1, static_cast<char>(*from + i)) + "/>";
  return xml + "</R>";
}

TEST(EnumNames, NextTag) {
  const Rows<std::string, int, int, const char*> rows = {
      {"<R/>", 0, 0, "A"},
      {"<R><A/><B/><c/></R>", 0, 0, "D"},
      {"<R><B/></R>", 0, 0, "A"},
      {children("A", 26), 0, 0, "AA"},
      {"<R><R1/><R2/><R4/></R>", 1, 3, "R3"},
      {"<R><R1/><R/></R>", 1, -1, "old"},
      {"<R><R1/><S7/></R>", 1, 2, "R2"},
      {"<R><R/></R>", 1, -1, "old"},
      {"<R/>", 1, -1, "old"},
      {"<R><R0/><r1/></R>", 1, 1, "R1"},
      {"<R><R1/><r1/><R2/></R>", 1, 2, "R2"},
      {"<R><R3/><r1/><R2/></R>", 1, 4, "R4"},
      {"<R><R007/><R1/></R>", 1, 2, "R2"},
  };
  for (const auto& [xml, numbered, result, wanted] : rows) {
    RYXmlWrapperBase tree = parse(xml);
    CString name("old");
    EXPECT_EQ(rytree_get_next_enum_tag_name(&tree, &name, numbered), result) << xml;
    EXPECT_STREQ(name, wanted) << xml;
    EXPECT_EQ(rytree_get_next_enum_tag_name(&tree, nullptr, numbered), numbered != 0 ? result : -1);
  }
  EXPECT_EQ(rytree_get_next_enum_tag_name(nullptr, nullptr, 1), -1);
  const std::string longest(100000, 'L');
  RYXmlWrapperBase tree = parse("<R><" + longest + "1/></R>");
  CString name;
  EXPECT_EQ(rytree_get_next_enum_tag_name(&tree, &name, 1), 2);
  EXPECT_EQ(name.View(), longest + "2");
}

TEST(EnumNames, LettersCarryOver) {
  RYXmlWrapperBase tree = parse("<R/>");
  std::string last;
  for (int i = 0; i < 26 + 26 * 26 + 1; ++i) {
    CString name;
    RYXmlWrapperBase child;
    if (i % 90 == 0 || i > 26 * 26) {
      ASSERT_EQ(rytree_get_next_enum_tag_name(&tree, &name, 0), 0);
    } else {
      name = last.c_str();
      int at = name.GetLength() - 1;
      while (name.GetAt(at) == 'Z') name.SetAt(at--, 'A');
      name.SetAt(at, static_cast<char>(name.GetAt(at) + 1));
      if (at < 0) name.Insert(0, 'A');
    }
    last = name.GetString();
    tree.AddNode(child, name, -1);
    if (i == 26) {
      EXPECT_EQ(last, "AA");
    }
    if (i == 26 + 26) {
      EXPECT_EQ(last, "BA");
    }
  }
  EXPECT_EQ(last, "AAA");
}

TEST(EnumNodes, SetIds) {
  const Rows<int, int, unsigned> rows = {{5, 3, 0x20030005U},
                                         {0x12345, 0, 0x20002345U},
                                         {-1, -1, 0xFFFFFFFFU},
                                         {0, 0x2000, 0x20000000U},
                                         {1, 0x10004, 0x20040001U}};
  for (const auto& [id, set, wanted] : rows) {
    EXPECT_EQ(rytree_make_one_set_ID(id, set), static_cast<int>(wanted)) << id << ' ' << set;
  }
}

TEST(EnumNodes, AddOneForEachValue) {
  struct Call {
    const char* before;
    std::vector<double> values;
    const char* label;
    int count, most;  // -1: not given
    int counted;
    const char* after;
  };
  const Call calls[] = {
      {"<R><a/><b/></R>",
       {1.5, 2},
       "L",
       -1,
       -1,
       -1,
       "<R><a/><b/><N3 _NodeID=\"537067529\" Label=\"L\">1.5</N3><N4 _NodeID=\"537133065\" "
       "Label=\"L\">2</N4></R>"},
      {"<R><a/><b/></R>",
       {7, 8, 9},
       "",
       -1,
       4,
       -1,
       "<R><a/><b/><N3 _NodeID=\"537067529\">7</N3><N4 _NodeID=\"537133065\">8</N4></R>"},
      {"<R/>", {7, 8}, nullptr, 10, 1, 12, "<R><N11 _NodeID=\"537591817\">7</N11></R>"},
      {"<R><N1 _NodeID=\"4\">x</N1></R>", {7}, "L", 0, -1, 1, "<R><N1 _NodeID=\"4\" Label=\"L\">7</N1></R>"},
      {"<R/>", {}, "L", 3, -1, 3, "<R/>"},
      {"<R/>",
       {1},
       nullptr,
       INT_MAX,
       -1,
       INT_MIN,
       "<R><N-2147483648 _NodeID=\"536870921\">1</N-2147483648></R>"},
  };
  for (const Call& call : calls) {
    RYXmlWrapperBase tree = parse(call.before);
    HostDoubleArray values;
    for (const double value : call.values) values.array().Add(value);
    int count = call.count;
    int most = call.most;
    EXPECT_TRUE(rytree_check_add_all_enumerated_nodes(&tree, "N", &values, 9, call.label,
                                                      call.count == -1 ? nullptr : &count,
                                                      most == -1 ? nullptr : &most));
    EXPECT_EQ(count, call.counted);
    EXPECT_EQ(text(tree), call.after);
  }
  RYXmlWrapperBase tree = parse("<R/>");
  HostIntArray ints;
  HostDoubleArray values;
  EXPECT_FALSE(rytree_check_add_all_enumerated_nodes(&tree, "N", &ints, 9, "", nullptr, nullptr));
  EXPECT_FALSE(rytree_check_add_all_enumerated_nodes(&tree, "N", nullptr, 9, "", nullptr, nullptr));
  EXPECT_FALSE(rytree_check_add_all_enumerated_nodes(nullptr, "N", &values, 9, "", nullptr, nullptr));
  RYXmlWrapperBase child;
  rytree_check_add_enumerated_node(&child, nullptr, "N", 1, 2, "k", "v");
  EXPECT_EQ(child.IsNodeValid(), 0);
}

TEST(EnumNames, CostGrowsInStepWithTheChildren) {
  const auto seconds_a_child = [](int count) {
    RYXmlWrapperBase tree = parse("<R><N/></R>");
    for (int i = 1; i < count; ++i) {
      RYXmlWrapperBase child;
      tree.AddNode(child, ("N" + std::to_string(i)).c_str(), -1);
    }
    const auto start = std::chrono::steady_clock::now();
    CString name;
    rytree_get_enum_node_name(&tree, &name, "n");
    EXPECT_EQ(name.View(), "n" + std::to_string(count));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / count;
  };
  const double few = seconds_a_child(1000);
  EXPECT_LT(seconds_a_child(30000), 20 * few);
}

}  // namespace
