#include <rytree_Utils/lookup.h>

#include <climits>

#include "call_arguments.h"
#include "frame/tag_path.h"

TEST(Numbers, UnderAllFilters) {
  using R = Row<DWORD, Text, Text>;
  for (const auto& [flags, attribute, order] :
       Rows{R{0, nullptr, "ABCDEFG"}, R{0x40001, nullptr, "ABCEFG"}, R{0x400FF, "", "ABCDEFG"},
            R{0x20000, nullptr, "ACE"}, R{0x60000, nullptr, "AE"}, R{0x10000, "x", "AC"}, R{0, "x", "AEFG"},
            R{0x50000, "x", "A"}, R{0xFFF8FF00, "", "ABCDEFG"}}) {
    std::string found;
    for (int index = 0; index < 8; ++index) {
      RYXmlWrapperBase node = parse("<R><A x=\"1\"><B/><C x=\"\"><D/></C></A><E><F/></E><G/></R>");
      EXPECT_EQ(rytree_get_node_ex(&node, &node, index, flags, attribute), 1);
      found += tag(node);
    }
    found.resize(found.find('R'));  // past the last number the handle stays where it was
    EXPECT_EQ(found, order);
  }
}

TEST(Numbers, CounterAndLevels) {
  RYXmlWrapperBase tree = parse("<R><A><B><C/></B></A><D/></R>");
  constexpr int kMax = INT_MAX;
  using R = Row<int, int, int, int, Text, int>;
  for (const auto& [index, first, max_level, level, found, next] :
       Rows{R{7, 5, -1, 0, "C", 7}, R{3, 0, -1, kMax, "D", 3}, R{1, 0, 1, 1, "D", 1}, R{9, 5, -1, 0, "", 9},
            R{0, 0, 1, 2, "", 0}, R{2, 0, 1, -1, "C", 2}, R{5, kMax, -1, 0, "", 2 - kMax}}) {
    RYXmlWrapperBase out;
    int counter = first;
    const int result = rytree_get_node(&tree, &out, index, &counter, max_level, nullptr, true, false, level);
    EXPECT_EQ(result, *found != 0);
    EXPECT_EQ(tag(out), found);
    EXPECT_EQ(counter, next);
  }
}

TEST(Ids, NodeIdOrDataId) {
  RYXmlWrapperBase tree = parse_ids("<R@1 #1><A@5 #2><B #5/><C@3/></A><D #3/></R>");
  for (const auto& [id, recursive, found] :
       Rows{Row{5, true, "A"}, Row{2, false, "A"}, Row{3, true, "C"}, Row{3, false, "D"}, Row{1, true, ""}}) {
    RYXmlWrapperBase out;
    EXPECT_EQ(rytree_get_node_by_id(&tree, &out, id, recursive), *found != 0);
    EXPECT_EQ(tag(out), found);
  }
}

TEST(Tags, StartNodeFirst) {
  RYXmlWrapperBase tree = parse("<A><B><a/></B><C><b/><É/></C></A>");
  using R = Row<Text, bool, bool, bool, Text>;
  for (const auto& [wanted, recursive, exact, leaves, found] :
       Rows{R{"A", false, true, false, "A"}, R{"a", false, false, false, "A"}, R{"a", false, true, false, ""},
            R{"a", true, true, false, "a"}, R{"A", true, false, true, "a"}, R{"A", true, true, true, ""},
            R{"é", true, false, false, "É"}, R{"", true, true, false, ""}}) {
    RYXmlWrapperBase out;
    for (RYXmlWrapperBase* const to : {&out, static_cast<RYXmlWrapperBase*>(nullptr)})
      EXPECT_EQ(rytree_get_node_by_tagname(&tree, to, wanted, recursive, exact, leaves), *found != 0);
    EXPECT_EQ(tag(out), found);
  }
}

TEST(Root, FromBelow) {
  RYXmlWrapperBase tree = parse("<R><A><B/></A></R>");
  RYXmlWrapperBase node = at(tree, {0, 0});
  RYXmlWrapperBase none;
  for (RYXmlWrapperBase* const start : {&node, &none}) {
    EXPECT_EQ(rytree_get_root_node(start, &node), 1);
    EXPECT_EQ(node, tree);
  }
  EXPECT_EQ(rytree_get_root_node(&none, &none), 0);
}

TEST(CheckGet, ByTag) {
  using R = Row<Text, int, Text, Text, Text>;
  for (const auto& [wanted, id, attribute, value, xml] :
       Rows{R{"A", 7, "k", "v", "<R><A k=\"v\"/><A/></R>"}, R{"A", 0, nullptr, "v", "<R><A/><A/></R>"},
            R{"B", 0, "k", "v", "<R><A/><A/><B k=\"v\"/></R>"}, R{"B", -1, "", "v", "<R><A/><A/><B/></R>"},
            R{"a", 0, "k", nullptr, "<R><A/><A/><a/></R>"}, R{"1", 0, "k", "v", "<R><A/><A/></R>"},
            R{"B", 11, "k", "", "<R><A/><A/><B@11/></R>"}}) {
    const RYXmlWrapperBase tree = parse("<R><A/><A/></R>");
    RYXmlWrapperBase parent(tree);
    RYXmlWrapperBase out(tree);
    const int made = *wanted != '1';
    EXPECT_EQ(rytree_tree_check_get_node(&out, &parent, wanted, id, attribute, value, 1), made);
    EXPECT_EQ(tag(out), made ? wanted : "");
    EXPECT_EQ(rytree_tree_check_get_node(&parent, &parent, wanted, id, attribute, value, 1), made);
    EXPECT_EQ(parent, out);
    EXPECT_EQ(text(tree), text(parse_ids(xml)));
  }
}

TEST(CheckGet, ByAttribute) {
  const RYXmlWrapperBase tree = parse("<R><A k=\"a\"><B k=\"two b\"/></A></R>");
  for (const auto& [value, find, found] :
       Rows{Row{"a", 0, "A"}, Row{"two b", 1, "B"}, Row{"two b", 0, "two_b"}, Row{"A", 1, "A"}}) {
    RYXmlWrapperBase node(tree);
    EXPECT_TRUE(rytree_tree_check_get_node_by_attribute(&node, &node, "k", value, find));
    EXPECT_EQ(tag(node), found);
  }
  EXPECT_EQ(text(tree), "<R><A k=\"a\"><B k=\"two b\"/></A><two_b k=\"two b\"/><A k=\"A\"/></R>");
}

TEST(CheckGet, ByDataId) {
  for (const auto& [id, found, made] :
       Rows{Row{2, "A", ""}, Row{3, "N", "<N k=\"v\" #3/>"}, Row{0, "N", "<N k=\"v\"/>"}}) {
    RYXmlWrapperBase tree = parse_ids("<R><A #2><C #3/></A></R>");
    RYXmlWrapperBase out;
    // A valid handle, which the second call gets, is taken as found.
    for (const int wanted : {id, 9})
      EXPECT_TRUE(rytree_check_get_node_by_dataid(&tree, &out, "N", wanted, "k", "v"));
    EXPECT_EQ(tag(out), found);
    EXPECT_EQ(text(tree), text(parse_ids("<R><A #2><C #3/></A>" + std::string(made) + "</R>")));
  }
}

TEST(Find, ValueDepthAndRepeat) {
  const RYXmlWrapperBase tree = parse_ids(
      "<R #7><P #7 ^6><Q #7/></P><S #7 ^5/><T DataID=\"x\"><U><V #8/></U><W #9 ^40000/></T><X ^40000 "
      "#1/></R>");
  using R = Row<int, bool, int, int, Text>;
  for (const auto& [value, recursive, depth, repeat, found] :
       Rows{R{7, false, 0, 0, "P"}, R{7, false, 0, 5, "S"}, R{7, false, 0, 6, "P"}, R{7, true, 0, 5, "Q"},
            R{7, false, 1, 5, "Q"}, R{9, false, 0, -1, "R"}, R{9, false, 1, 40000, "W"},
            R{9, true, -9, 4, "W"}, R{8, false, 1, -1, "R"}, R{8, false, 2, -1, "V"},
            R{8, true, INT_MIN, -1, "V"}, R{1, false, 0, 40000, "R"}, R{8, true, INT_MAX, -1, "V"}}) {
    RYXmlWrapperBase node(tree);
    EXPECT_EQ(rytree_find_node(&node, &node, "DataID", value, recursive, depth, repeat), *found != 'R');
    EXPECT_EQ(tag(node), found);
  }
}

TEST(Find, ChainOfAncestors) {
  const RYXmlWrapperBase tree =
      parse_ids("<R><O><G #7><P #3 ^1><X #5/></P><Q #3 ^2><Y #5><Z #6/></Y></Q></G></O><H #8 ^2/></R>");
  for (const auto& [id, parent, repeat, grandparent, top, result, found] :
       Rows{Row{6, 0, -1, 0, -1, 0, "Z"}, Row{5, 3, 2, 0, -1, 0, "X"}, Row{5, 3, 2, 7, -1, 0, "Y"},
            Row{6, 3, 2, 7, -1, 6, "Q"}, Row{6, 3, -1, 0, -1, 6, "P"}, Row{5, 4, -1, 7, -1, 4, "G"},
            Row{5, 3, -1, 8, 1, 8, "R"}, Row{5, 3, 9, 7, -1, 3, "G"}, Row{5, 0, -1, 7, -1, -2, "R"},
            Row{0, 3, -1, 7, -1, -2, "R"}, Row{5, 3, -1, 8, 2, 3, "H"}, Row{5, 3, -1, 9, -1, 9, "R"}}) {
    RYXmlWrapperBase out(tree);
    EXPECT_EQ(rytree_find_node_ex(&out, &out, "DataID", id, parent, repeat, grandparent, top), result);
    EXPECT_EQ(tag(out), found);
    RYXmlWrapperBase start(tree);
    EXPECT_EQ(rytree_find_node_by_dataID(&out, &start, id, parent, repeat, grandparent, top), result == 0);
    EXPECT_EQ(tag(out), result == 0 ? found : "");
  }
}

TEST(RepeatId, WrittenWithoutBoundReadWithOne) {
  for (const auto& [written, valid, read] :
       Rows<int, int, int>{{1, 1, 1}, {32767, 1, 32767}, {32768, 0, 32768}, {0, 0, -1}, {-7, 0, -1}}) {
    RYXmlWrapperBase node = parse("<R RepeatID=\"3\"/>");
    int id = 77;
    EXPECT_EQ(VCTreeSetRepeatId(node, written), 1);
    EXPECT_EQ(VCTreeGetRepeatId(node, id), valid);
    EXPECT_EQ(id, read);
    node.SetPropertyValue("RepeatID", 0);
    EXPECT_EQ(VCTreeGetRepeatId(node, id), 0);
    EXPECT_EQ(id, 0);
  }
}

TEST(TagPath, ReadingMakesNothingWritingMakesThePath) {
  const Text start = "<R><A>no number</A></R>";
  RYXmlWrapperBase tree = parse(start);
  int number = 7;
  double real = 7.5;
  CString string("old");
  tagRYSOBJVECT vector;
  vector.values.Add(1.5);
  const auto expect_each = [&](int result, int get) {
    EXPECT_EQ(tmxfu_tree_node_int_value(tree, number, get, "I", "J", nullptr), result);
    EXPECT_EQ(tmxfu_tree_node_double_value(tree, real, get, "A", "D", nullptr), result);
    EXPECT_EQ(tmxfu_tree_node_string_value(tree, string, get, "S", nullptr), result);
    EXPECT_EQ(tmxfu_tree_node_vector_value(tree, vector, get, "V", nullptr), result);
    return text(tree);
  };
  EXPECT_EQ(expect_each(0, 1), start);
  EXPECT_EQ(tmxfu_tree_node_vector_value(tree, vector, 1, "A", nullptr), 0);
  EXPECT_EQ(tmxfu_tree_node_int_value(tree, number, 1, "A", nullptr), 0);
  const std::string written = "<R><A>no number<D>7.5</D></A><I><J>7</J></I><S>old</S><V>1.5</V></R>";
  EXPECT_EQ(expect_each(1, 0), written);
  number = 0, real = 0, string = "", vector.values.RemoveAll();
  expect_each(1, 1);
  tree = parse(start);
  EXPECT_EQ(expect_each(1, 0), written);
}

TEST(TagPath, Ends) {
  RYXmlWrapperBase tree = parse("<R><A/></R>");
  RYXmlWrapperBase out(at(tree, {0}));
  EXPECT_EQ(tmxfu_tree_check_get_node(out, tree, "B", "1", "C", nullptr), 0);
  EXPECT_EQ(tmxfu_tree_get_node(out, tree, "A", "D", nullptr), 0);
  EXPECT_EQ(tag(out), "A");
  EXPECT_NE(tmxfu_tree_check_get_node(out, out, "D", "E", nullptr), 0);
  EXPECT_EQ(tag(out), "E");
  EXPECT_EQ(text(tree), "<R><A><D><E/></D></A><B/></R>");
  EXPECT_NE(tmxfu_tree_get_node(out, tree, nullptr, nullptr), 0);
  EXPECT_EQ(out, tree);
}

TEST(Lookup, BadArguments) {
  RYXmlWrapperBase tree = parse("<R/>");
  RYXmlWrapperBase dead = dead_node();
  RYXmlWrapperBase out;
  int counter = 0;
  EXPECT_EQ(with_bad(rytree_get_node, &tree, &out, 0, &counter, -1, nullptr, true, false, 0), "0 0,0 0,0,0");
  EXPECT_EQ(with_bad(rytree_get_node_ex, &tree, &out, 0, 0, nullptr), "1 1,0 1,1");
  EXPECT_EQ(with_bad(rytree_get_node_by_id, &tree, &out, 1, true), "0 0,0 0");
  EXPECT_EQ(with_bad(rytree_get_root_node, &tree, &out), "0 0,0 1");
  EXPECT_EQ(with_bad(rytree_get_node_by_tagname, &tree, &out, "R", true, true, false), "0 0,1 1,0");
  EXPECT_EQ(with_bad(rytree_find_node, &tree, &out, "DataID", 1, true, 0, -1), "0 0,0 0,0");
  EXPECT_EQ(with_bad(rytree_find_node_ex, &tree, &out, "DataID", 0, 0, -1, 0, -1), "-1 -2,-1 -2,-1");
  EXPECT_EQ(with_bad(rytree_find_node_by_dataID, &out, &tree, 1, 0, -1, 0, -1), "0 0,0 0");
  EXPECT_EQ(with_bad(rytree_tree_check_get_node_by_attribute, &out, &tree, "k", "1", 1), "0 1,0 0,0,0");
  EXPECT_EQ(with_bad(rytree_tree_check_get_node, &out, &tree, "A", 0, "k", "v", 1), "0 1,0 0,0,1,1");
  EXPECT_EQ(with_bad(rytree_check_get_node_by_dataid, &tree, &out, "B", 1, "k", "v"), "1 1,1 1,1,1,1");
  EXPECT_EQ(text(tree), R"(<R><_1 k="1"/><A k="v"/><B k="v" DataID="1"/></R>)");
  EXPECT_EQ(tmxfu_tree_check_get_node(tree, dead, "A", nullptr), 0);
  EXPECT_EQ(tmxfu_tree_get_node(dead, dead, nullptr, nullptr), 0);
  EXPECT_EQ(VCTreeSetRepeatId(dead, 5), 0);
  EXPECT_EQ(VCTreeGetRepeatId(dead, counter), 0);
  EXPECT_EQ(counter, -1);
}
