#include <rytree_Utils/variable_node.h>

#include "tree_text.h"

TEST(VariableNode, InputAndOutput) {
  // Input, output, and the same when strict.
  for (const auto& [inside, answers] : rows<2>(R"(
       | ----
      <io>0</io> | i-i-
      <io>1</io> | -o-o
      <x/><io>2</io> | io--
      <io>-1</io> | io--
      <io>one</io> | i-i-)")) {
    RYXmlWrapperBase node = parse("<V>" + inside + "</V>");
    std::string all;
    for (const bool strict : {false, true}) {
      all += XVarNode_IsInput(node, strict) ? "i" : "-";
      all += XVarNode_IsOutput(node, strict) ? "o" : "-";
    }
    EXPECT_EQ(all, answers);
  }
}

TEST(InteractiveOptions, NearestSettingWins) {
  const RYXmlWrapperBase root = parse(
      "<A><B InteractiveOptions='6'><C><D/></C><C InteractiveOptions='0'/><C InteractiveOptions='x'/></B>"
      "<B InteractiveOptions='-2147483648'/></A>");
  const unsigned long sign = 0x80000000;  // the options are 32 bits without a sign
  using R = Row<RYXmlWrapperBase, unsigned long, int>;
  for (auto [node, mask, set] :
       Rows{R{root, ~0UL, 0}, R{dead_node(), ~0UL, 0}, R{at(root, {0}), 4, 1}, R{at(root, {0}), 1, 0},
            R{at(root, {0, 0, 0}), 4, 1}, R{at(root, {0, 0, 0}), 1, 0}, R{at(root, {0, 2}), 4, 1},
            R{at(root, {0, 1}), 6, 0}, R{at(root, {1}), sign, 1}, R{at(root, {1}), ~0UL ^ sign, 0}})
    EXPECT_EQ(vctree_test_ICOPT_recursively(node, mask), set);
}
