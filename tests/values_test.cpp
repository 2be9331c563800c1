#include <rytree_Utils/values.h>

#include "tree_text.h"

namespace {

TEST(Values, OfAllChildren) {
  RYXmlWrapperBase tree = parse("<R>t<C>1</C><C/><C>2<D>3</D></C></R>");
  CStringArray values;
  values.Add("old");
  vctree_get_all_children_values_as_string_array(tree, values);
  EXPECT_EQ(listed(values), "[old][1][][2]");
}

TEST(Values, OfABranch) {
  RYXmlWrapperBase tree = parse("<R>own<A>1</A><B>two<C>3</C><D/></B></R>");
  using R = Row<RYXmlWrapperBase, int, const char*>;
  for (const auto& [node, children_only, expected] :
       Rows{R{at(tree, {0}), 1, "[old][1]"}, R{at(tree, {1, 1}), 0, "[old][]"},
            R{tree, 0, "[old][][1][][3][]"}, R{tree, 256, "[old][][1][two]"}, R{dead_node(), 0, "[old][]"}}) {
    RYXmlWrapperBase start(node);
    HostStringArray values;
    values.array().Add("old");
    EXPECT_EQ(rytree_get_values(&start, &values, children_only), 0);
    EXPECT_EQ(listed(values.array()), expected);
  }
  HostStringArray strings;
  HostIntArray ints;
  EXPECT_EQ(rytree_get_values(&tree, &ints, 0), -1);
  EXPECT_EQ(rytree_get_values(nullptr, &strings, 0), -1);
}

}  // namespace
