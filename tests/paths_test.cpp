// Rows, levels and paths; labels and tags.
#include <rytree_Utils/paths.h>

#include "call_arguments.h"
#include "frame/children.h"

TEST(Row, IsFoundByPath) {
  RYXmlWrapperBase tree = parse("<A><B><D/></B><C/><b><E/></b><C><F/></C><É.x/><G><H/></G></A>");
  const Rows<Text, int> cases = {{"A", 1},      {"A.B.D", 3}, {"a.c", 4},    {"A.b.E", -1},
                                 {"B.D", -1},   {"", -1},     {"A.", -1},    {"A.X", -1},
                                 {"A.g.H", 11}, {".A", -1},   {"A.É.x", -1}, {"A.B.D.D", -1}};
  for (const auto& [path, row] : cases) EXPECT_EQ(rytree_get_row_number(&tree, path), row);
}

// The level of C by the options ("=") of A, B. and C. X is beside B.; "-" is a null root, "dead" an invalid one.
TEST(Level, IsCountedFromTheStop) {
  for (const auto& [xml, root, stop, level, path, stop_tag] : rows<6>(R"(
      <A ='-1'><B. ='1'><C ='-2'/></B.><X/></A> | -    | 1 | 2  | A.B..C | -
      <A ='0'><B. ='0'><C ='0'/></B.><X/></A>   | A    | 1 | 2  | A.B..C | A
      <A ='0'><B. ='0'><C ='0'/></B.><X/></A>   | C    | 1 | 0  | C      | C
      <A ='0'><B. ='0'><C ='0'/></B.><X/></A>   | X    | 1 | -1 | old    | X
      <A ='0'><B. ='0'><C ='0'/></B.><X/></A>   | dead | 1 | -1 | old    |
      <A ='2'><B. ='1'><C ='0'/></B.><X/></A>   | A    | 3 | 1  | B..C   | B.
      <A ='0'><B. ='0'><C ='1'/></B.><X/></A>   | A    | 1 | 0  | C      | C
      <A ='1'><B. ='0'><C ='0'/></B.><X/></A>   | B.   | 1 | 1  | B..C   | B.
      <A ='1'><B. ='0'><C ='-1'/></B.><X/></A>  | C    | 1 | -1 | old    | C
      <A ='1'><B. ='-1'><C ='-1'/></B.><X/></A> | B.   | 0 | 1  | B..C   | B.
      <A ='0'><B. ='-2'><C ='0'/></B.><X/></A>  | B.   | 1 | -1 | old    | B.
      <A ='1'><B. ='-2'><C ='-3'/></B.><X/></A> | C    | 1 | 2  | A.B..C | A)")) {
    CString named(xml.c_str());
    named.Replace("=", "EventRootOption=");
    RYXmlWrapperBase tree = parse(named.GetString());
    RYXmlWrapperBase node = at(tree, {0, 0});
    RYXmlWrapperBase stopped;
    for (NodesOf each(tree); each; ++each) {
      if (tag(*each) == root) stopped = *each;
    }
    CString found("old");
    const bool rooted = root != "-";
    EXPECT_EQ(rytree_get_level(&found, &node, rooted ? &stopped : nullptr, std::stoi(stop)),
              std::stoi(level));
    EXPECT_EQ(found.View(), path);
    EXPECT_EQ(rooted ? tag(stopped) : "-", stop_tag);
  }
  RYXmlWrapperBase both = at(parse("<A><B EventRootOption='2'><C. EventRootOption='-2'/></B></A>"), {0, 0});
  CString path;
  EXPECT_EQ(rytree_get_level(&path, &both, &both, 1), 1);
  EXPECT_STREQ(path, "B.C");
  EXPECT_EQ(tag(both), "B");
}

TEST(Path, IsWrittenIntoAnAttribute) {
  RYXmlWrapperBase node;
  for (const auto& [recursive, self, after] : rows<3>(R"(
      0 | 2 | <A p="A"><B.><D/><E/></B.><C/></A>
      2 | 0 | <A p="-"><B. p="B."><D p="B..D"/><E p="B..E"/></B.><C p="C"/></A>
      1 | 1 | <A p="A"><B. p="A.B."><D p="A.B..D"/><E p="A.B..E"/></B.><C p="A.C"/></A>)")) {
    RYXmlWrapperBase tree = parse("<A p='-'><B.><D/><E/></B.><C/></A>");
    EXPECT_EQ(rytree_add_path_str(&tree, "p", std::stoi(recursive), std::stoi(self)), 1);
    EXPECT_EQ(text(tree), after);
    node = at(tree, {0, 1});
  }
  CString path;
  EXPECT_TRUE(VCTreeGetPathStr(path, &node));
  EXPECT_STREQ(path, "A.B..E");
}

TEST(Names, AreLabelsOrTags) {
  RYXmlWrapperBase tree = parse("<R><A Label=''><B Label='b'/></A><C/></R>");
  CString all;
  for (RYXmlWrapperBase node : {tree, at(tree, {0}), at(tree, {0, 0})})
    all += rytree_get_node_label(&node, true) + "," + rytree_get_node_label(&node, false) + ";";
  EXPECT_STREQ(all, "R,R;,A;b,B;");
  Strings names;
  EXPECT_EQ(rytree_get_node_names(&tree, &names, 2), 1);
  EXPECT_EQ(rytree_get_node_names(&tree, &names, 0), 1);
  EXPECT_EQ(list_of(names.array()), "A,C,A,B,C");
}

TEST(Paths, RefuseBadArguments) {
  RYXmlWrapperBase tree = parse("<R/>");
  RYXmlWrapperBase dead = dead_node();
  Strings names;
  CString path("old");
  EXPECT_EQ(with_bad(rytree_get_level, &path, nullptr, &dead, 0), "-1,-1 -1,-1 -1");
  EXPECT_STREQ(path, "old");
  EXPECT_EQ(rytree_get_level(&path, &dead, nullptr, 1), -1);
  EXPECT_STREQ(path, "");
  path = "old";
  EXPECT_EQ(with_bad(VCTreeGetPathStr, path, &dead), "0 0");
  EXPECT_STREQ(path, "");
  EXPECT_EQ(with_bad(rytree_get_row_number, &tree, "Gone"), "-1 -1,-1");
  EXPECT_EQ(with_bad(rytree_get_node_names, &tree, &names, 0), "-1 1,-1 -1");
  with_bad(vctree_get_node_names, &tree, &names.array(), false);
  EXPECT_STREQ(rytree_get_node_label(nullptr, true), "");
  EXPECT_STREQ(rytree_get_node_label(&dead, true), "");
  EXPECT_EQ(with_bad(rytree_add_path_str, &tree, "1 2", 1, 1), "0 0,0");
  EXPECT_EQ(rytree_add_path_str(&tree, "1 2", 1, 1), 1);
  EXPECT_EQ(rytree_add_path_str(&tree, "", 1, 1), 0);
  EXPECT_EQ(text(tree), "<R/>");
}
