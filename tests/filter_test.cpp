// Thinning trees.
#include <rytree_Utils/filter.h>

#include "call_arguments.h"
#include "frame/children.h"

namespace {

/// The tags in capitals below a node, without the rest.
std::string capitals(const RYXmlWrapperBase& node) {
  std::string tags;
  for (NodesBelow at(node); at; ++at) {
    if (tag(*at)[0] <= 'Z') tags += tag(*at);
  }
  return tags;
}

// A to C, E, F and H are candidates, D is not, G is inside one.
TEST(Filter, TestsTheTextsBelow) {
  const RYXmlWrapperBase tree = parse_ids(
      "<R><A #1><t #2>x</t><t #3>p</t></A><B #1><t #2>X<u><t #2>é</t></u></t><t #3>p</t><t #3>Q</t></B>"
      "<C #1/><D #2>x<E #1><t #2>z</t></E></D><F #1><G #1><t #2>x</t></G></F><H #1><t #2/></H></R>");
  for (const auto& [include, in, exclude, out, left] :
       Rows{Row{0, "x,É", 1, "", "BD"}, Row{1, "x,é", 2, "", "ABDFG"}, Row{0, ",", 1, "", "DH"},
            Row{2, "", 1, "", "D"}, Row{0, "", 0, "", "D"}, Row{0, "x", 0, "p", "ADFG"},
            Row{1, "x,É,z", 0, "p", "ABDEFG"}, Row{0, "", 1, "P", "CDEFGH"}, Row{0, "", 1, "r,q", "ACDEFGH"},
            Row{0, "", 2, "q,p", "ACDEFGH"}, Row{0, "", 2, "p,r", "ABCDEFGH"}, Row{0, "", 3, "", "D"},
            Row{-1, "x", 1, "", "D"}, Row{1, "x", 1, "q", "ADFG"}}) {
    for (const int repeats : {1, 9}) {  // the same texts again change nothing
      RYXmlWrapperBase copy;
      tree.Clone(copy, 1);
      Strings includes(in, repeats);
      Strings excludes(out, repeats);
      EXPECT_EQ(rytree_filter(&copy, 1, include, 2, &includes, exclude, 3, &excludes), 1);
      EXPECT_EQ(capitals(copy), left);
    }
  }
}

TEST(Filter, TestsOneAttribute) {
  const RYXmlWrapperBase tree = parse_ids(
      "<R><A #1 k='Énd'/><B #1 k='xénd'/><C #1><I #1 k='én'/></C><D><E #1 k='éND'><J #1/></E></D><F/></R>");
  // At the start or anywhere; -1 marks a pattern.
  for (const auto& [wanted, flag, at_start, left] :
       Rows{Row{"én", 0, 0, "ABDEJF"}, Row{"én", 0, 1, "ADEJF"}, Row{"én", 1, 0, "BDF"},
            Row{"É", 1, 1, "ADF"}, Row{"", 0, 1, "ABDEJF"}, Row{"NDx", 0, 0, "DF"}, Row{"*nd", 1, -1, "ABDF"},
            Row{"é*", 0, -1, "ADEJF"}, Row{"é*", 1, -1, "DEJF"}, Row{"*", 0, -1, "ABDEJF"}}) {
    RYXmlWrapperBase copy;
    tree.Clone(copy, 1);
    EXPECT_EQ(at_start < 0 ? rytree_filter_by_attrib_match(&copy, 1, "k", wanted, flag)
                           : rytree_filter_by_attrib_find(&copy, 1, "k", wanted, flag, at_start),
              1);
    EXPECT_EQ(capitals(copy), left);
  }
}

TEST(Filter, TestsAStartNodeAlone) {
  Strings texts("x");
  RYXmlWrapperBase top = parse_ids("<R #1 k='v'><A #1/><B #2>x</B></R>");
  EXPECT_EQ(rytree_filter(&top, 1, 0, 2, &texts, 0, 3, &texts), 1);
  EXPECT_EQ(rytree_filter_by_attrib_match(&top, 1, "k", "v", 0), 1);
  EXPECT_EQ(capitals(top), "AB");
  EXPECT_EQ(rytree_filter(&top, 1, 0, 2, &texts, 1, 2, &texts), 1);
  EXPECT_FALSE(top.IsNodeValid());
}

TEST(Filter, RefusesBadArguments) {
  Strings list;
  RYXmlWrapperBase tree = parse_ids("<R #1/>");
  EXPECT_EQ(with_bad(rytree_filter, &tree, 1, 9, 2, &list, 1, 3, &list), "0 0,-1 -1,-1 -1");
  EXPECT_EQ(rytree_filter(nullptr, 1, 9, 2, nullptr, 1, 3, &list), -1);
  EXPECT_EQ(with_bad(rytree_filter_by_attrib_find, &tree, 1, "k", "x", 0, 0), "0 0,0,0");
  EXPECT_EQ(with_bad(rytree_filter_by_attrib_match, &tree, 1, "k", "x", 0), "0 0,0,0");
  EXPECT_TRUE(tree.IsNodeValid());
}

}  // namespace
