#include <rytree_Utils/input_data.h>

#include "call_arguments.h"

TEST(InputData, Branch) {
  Strings tags("A,B,,D,D");
  Strings labels("a,");
  // Before, range number, value index and value; after ("@": the node ID of a new child), and the child that
  // `out` ends on (-1: the parent).
  using R = Row<Text, int, int, Text, Text, int>;
  for (const auto& [before, number, index, value, after, child] :
       Rows{R{"<T/>", 0, -1, "v", "<T><A@ Label='a'>v</A><B@>v</B><D@>v</D></T>", -1},
            R{"<T/>", -1, 9, "v", "<T><A@ Label='a'/><B@/><D@/></T>", -1},
            R{"<T><B Label='b'>w</B><A Label='c'/><B/><D/><A/></T>", 0, 1, "v",
              "<T><B Label='b'>v</B><A Label='a'/><B/><D/><A/></T>", -1},
            R{"<T><B>w</B></T>", 2, 4, "v",
              "<T><B>w</B><Range2 _NodeID='8' Label='Range 2'><A@ Label='a'/><B@/><D@>v</D></Range2></T>", 1},
            R{"<T><Range1 _NodeID='5' Label='x'><A>w</A><B/><D/></Range1></T>", 1, -1, nullptr,
              "<T><Range1 _NodeID='5' Label='Range 1'><A Label='a'>w</A><B/><D/></Range1></T>", 0}}) {
    RYXmlWrapperBase tree = parse(before);
    CString expected(after);
    expected.Replace("@", " _NodeID='35'");
    for (int again = 0; again < 2; ++again) {
      RYXmlWrapperBase out;
      rytree_tree_check_add_input_data_branch(&out, &tree, &tags, &labels, 8, number, index, value);
      EXPECT_EQ(text(tree), text(parse(expected.GetString())));
      EXPECT_EQ(out, child == -1 ? tree : at(tree, {child}));
    }
  }
}

TEST(InputData, BadArguments) {
  RYXmlWrapperBase tree = parse("<T/>");
  RYXmlWrapperBase out;
  Strings names("A");
  const auto add = rytree_tree_check_add_input_data_branch;
  EXPECT_EQ(with_bad(add, &out, &tree, &names, &names, 0, 3, -1, nullptr), "1 1,1 1,1 1,1 1,1");
  const Text written = "<T><Range3 Label='Range 3'><A _NodeID='35' Label='A'/></Range3></T>";
  EXPECT_EQ(text(tree), text(parse(written))) << "by the calls with a dead `out` and without a value";
}
