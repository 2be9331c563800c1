// Flat branches as lines of text.
#include <rytree_Utils/key_value.h>

#include "tree_text.h"

namespace {

using Text = const char*;

TEST(KeyValue, IsWritten) {
  const Rows<Text, int, Text> cases = {{"<R><a>1</a><b>2</b></R>", 1, "a=1,b=2,"},
                                       {"<R>t<a k='1'/><b>x<c>y</c></b></R>", 1, "a=,b=x,"},
                                       {"<R/>", 0, ""},
                                       {"<R>t</R>", 0, ""}};
  for (const auto& [xml, result, wanted] : cases) {
    RYXmlWrapperBase tree = parse(xml);
    CString line("old");
    EXPECT_EQ(rytree_branch_to_key_value_pairs_str(&tree, &line, '=', ','), result);
    EXPECT_STREQ(line, wanted);
    EXPECT_EQ(rytree_branch_to_key_value_pairs_str(&tree, nullptr, '=', ','), 0);
  }
  CString line("old");
  EXPECT_EQ(rytree_branch_to_key_value_pairs_str(nullptr, &line, '=', ','), 0);
  EXPECT_STREQ(line, "");
}

TEST(KeyValue, IsRead) {
  const Rows<Text, int, Text> cases = {{"a=1,b=2,", 1, "<R><a>1</a><b>2</b></R>"},
                                       {"a=1=2=,a=3", 1, "<R><a>1=2=</a><a>3</a></R>"},
                                       {" a \t= \n1 2 ,", 1, "<R><a>1 2</a></R>"},
                                       {"a,=1,,b=,1c=5", 1, "<R><b/></R>"},
                                       {"a=\"1,2\",b=3", 1, "<R><a>\"1,2\"</a><b>3</b></R>"},
                                       {"a=\"1,b=3", 1, "<R><a>\"1</a><b>3</b></R>"},
                                       {"", 0, "<R/>"},
                                       {nullptr, 0, "<R/>"},
                                       {" =1", 0, "<R/>"}};
  for (const auto& [line, result, wanted] : cases) {
    RYXmlWrapperBase tree = parse("<R><old/></R>");
    EXPECT_EQ(rytree_key_value_pairs_str_to_branch(&tree, line, '=', ','), result);
    EXPECT_EQ(text(tree), wanted);
  }
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_key_value_pairs_str_to_branch(&dead, "a=1", '=', ','), 0);
  EXPECT_EQ(rytree_key_value_pairs_str_to_branch(nullptr, "a=1", '=', ','), 0);
}

}  // namespace
