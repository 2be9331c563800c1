#include <rytree_Utils/input_data.h>

#include "call_arguments.h"

TEST(InputData, Branch) {
  Strings tags("A,B,,D,D");
  Strings labels("a,");
  // Before, range number, value index and value ("-": none); after, and the child that `out` ends on (-1: the parent).
  for (const auto& [before, number, index, value, after, child] : rows<6>(R"(
      <T/> | 0  | -1 | v | <T><A@35 Label='a'>v</A><B@35>v</B><D@35>v</D></T> | -1
      <T/> | -1 | 9  | v | <T><A@35 Label='a'/><B@35/><D@35/></T>             | -1
      <T><B Label='b'>w</B><A Label='c'/><B/><D/><A/></T> | 0 | 1 | v | \
          <T><B Label='b'>v</B><A Label='a'/><B/><D/><A/></T> | -1
      <T><B>w</B></T> | 2 | 4 | v | \
          <T><B>w</B><Range2@8 Label='Range 2'><A@35 Label='a'/><B@35/><D@35>v</D></Range2></T> | 1
      <T><Range1@5 Label='x'><A>w</A><B/><D/></Range1></T> | 1 | -1 | - | \
          <T><Range1@5 Label='Range 1'><A Label='a'>w</A><B/><D/></Range1></T> | 0)")) {
    RYXmlWrapperBase tree = parse_ids(before);
    for (int again = 0; again < 2; ++again) {
      RYXmlWrapperBase out;
      rytree_tree_check_add_input_data_branch(&out, &tree, &tags, &labels, 8, std::stoi(number),
                                              std::stoi(index), value == "-" ? nullptr : value.c_str());
      EXPECT_EQ(text(tree), text(parse_ids(after)));
      EXPECT_EQ(out, child == "-1" ? tree : at(tree, {std::stoi(child)}));
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
