// Enumerated names and nodes.
#include <rytree_Utils/enumerate.h>

#include <climits>

#include "call_arguments.h"

// The suffix "tag" asks for a free tag, "null" stands for no suffix.
TEST(EnumNames, TakeTheFirstFreeNumber) {
  for (const auto& [xml, suffix, wanted] : rows<3>(R"(
      <R><Fit/><Fit1/></R>                      | tag  | Fit2
      <R><fit1/><a><Fit/></a></R>               | tag  | Fit
      <R><FIT/><fit1/><Fit3/></R>               | tag  | Fit2
      <R><a k="Fit.txt"/><b k="fit1.TXT"/></R>  | .txt | Fit2
      <R><a k="Fit"/><b/><c k="Fit1"/></R>      | null | Fit2
      <R><a><b k="Fit"/></a></R>                |      | Fit)")) {
    RYXmlWrapperBase tree = parse(xml);
    CString name("old");
    if (suffix == "tag") {
      rytree_get_enum_node_name(&tree, &name, "Fit");
    } else {
      rytree_get_enum_attribute_value(&tree, &name, "k", "Fit", suffix == "null" ? nullptr : suffix.c_str());
    }
    EXPECT_EQ(name.View(), wanted);
  }
  RYXmlWrapperBase tree = parse("<R><é/></R>");
  CString name("old");
  rytree_get_enum_node_name(&tree, &name, "É");
  EXPECT_STREQ(name, "É1");
  with_bad(rytree_get_enum_node_name, &tree, &name, "X");
  EXPECT_STREQ(name, "X");
  with_bad(rytree_get_enum_attribute_value, &tree, &name, "k", "Y", "");
  EXPECT_STREQ(name, "Y");
}

TEST(EnumNames, TellTheNextTag) {
  for (const auto& [xml, numbered, result, wanted] : rows<4>(R"(
      <R><A/><B/><c/></R>      | 0 | 0  | D
      <R><B/></R>              | 0 | 0  | A
      <R><R1/><R2/><R4/></R>   | 1 | 3  | R3
      <R><R1/><R/></R>         | 1 | -1 | old
      <R><R1/><S7/></R>        | 1 | 2  | R2
      <R/>                     | 1 | -1 | old
      <R><R0/><r1/></R>        | 1 | 1  | R1
      <R><R1/><r1/><R2/></R>   | 1 | 2  | R2
      <R><R3/><r1/><R002/></R> | 1 | 4  | R4)")) {
    RYXmlWrapperBase tree = parse(xml);
    CString name("old");
    EXPECT_EQ(rytree_get_next_enum_tag_name(&tree, &name, std::stoi(numbered)), std::stoi(result));
    EXPECT_EQ(name.View(), wanted);
  }
  const std::string longest(100000, 'L');
  RYXmlWrapperBase tree = parse("<R><" + longest + "1/></R>");
  CString name;
  EXPECT_EQ(rytree_get_next_enum_tag_name(&tree, &name, 1), 2);
  EXPECT_EQ(name.View(), longest + "2");
  EXPECT_EQ(with_bad(rytree_get_next_enum_tag_name, &tree, &name, 1), "-1 -1,2");
  EXPECT_EQ(with_bad(rytree_get_next_enum_tag_name, &tree, &name, 0), "-1 -1,-1");
}

TEST(EnumNames, CarryLetters) {
  RYXmlWrapperBase tree = parse("<R/>");
  for (int i = 0; i <= 26 + 26 * 26; ++i) {
    CString name;
    rytree_get_next_enum_tag_name(&tree, &name, 0);
    RYXmlWrapperBase child;
    tree.AddNode(child, name, -1);
  }
  for (const auto& [index, wanted] :
       Rows<int, const char*>{{25, "Z"}, {26, "AA"}, {51, "AZ"}, {52, "BA"}, {701, "ZZ"}, {702, "AAA"}})
    EXPECT_EQ(tag(at(tree, {index})), wanted);
}

TEST(EnumNodes, HaveSetIds) {
  for (const auto& [id, set, wanted] :
       Rows<int, int, int>{{0x12345, 3, 0x20032345}, {-1, -1, -1}, {1, 0x10004, 0x20040001}})
    EXPECT_EQ(rytree_make_one_set_ID(id, set), wanted);
}

// A count or limit left out is not given.
TEST(EnumNodes, AreAddedForEachValue) {
  for (const auto& [before, numbers, label, count, most, counted, after] : rows<7>(R"(
      <a/><b/>     | 1.5   | L |            |   | 0   | <a/><b/><N3@537067529 Label="L">1.5</N3>
      <a/><b/>     | 7,8,9 |   |            | 4 | 0   | <a/><b/><N3@537067529>7</N3><N4@537133065>8</N4>
                   | 7,8   |   | 10         | 1 | 12  | <N11@537591817>7</N11>
      <N1@4>x</N1> | 7     | L | 0          |   | 1   | <N1@4 Label="L">7</N1>
                   | 1     |   | 2147483647 |   | -2147483648 | <N-2147483648@536870921>1</N-2147483648>)")) {
    RYXmlWrapperBase tree = parse(with_ids("<R>" + before + "</R>"));
    Doubles values(numbers);
    int given = count.empty() ? 0 : std::stoi(count);
    int limit = most.empty() ? 0 : std::stoi(most);
    EXPECT_TRUE(rytree_check_add_all_enumerated_nodes(&tree, "N", &values, 9, label.c_str(),
                                                      count.empty() ? nullptr : &given,
                                                      most.empty() ? nullptr : &limit));
    EXPECT_EQ(given, std::stoi(counted));
    EXPECT_EQ(text(tree), with_ids("<R>" + after + "</R>"));
  }
  RYXmlWrapperBase tree = parse("<R/>");
  Doubles values("7,8");
  for (const int others : {0, 99}) {
    RYXmlWrapperBase parent = parse("<R><N2/><N1/><N2/></R>");
    RYXmlWrapperBase child;
    for (int i = 0; i < others; ++i) parent.AddNode(child, "x", -1);
    int from = 0;
    EXPECT_TRUE(rytree_check_add_all_enumerated_nodes(&parent, "N", &values, 9, "", &from, nullptr));
    parent.SetSizeTrimFromEnd(3);
    EXPECT_EQ(text(parent), "<R><N2>8</N2><N1>7</N1><N2/></R>");
  }
  EXPECT_EQ(with_bad(rytree_check_add_all_enumerated_nodes, &tree, "N", &values, 9, "L", nullptr, nullptr),
            "0 1,1,0 0,1,1,1");
  rytree_check_add_enumerated_node(&tree, nullptr, "N", 1, 2, "k", "v");
}
