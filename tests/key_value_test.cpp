// Flat branches as lines of text.
#include <rytree_Utils/key_value.h>

#include "call_arguments.h"

TEST(KeyValue, IsWritten) {
  for (const auto& [xml, result, wanted] : Rows{Row{"<R><a>1</a><b>2</b></R>", 1, "a=1,b=2,"},
                                                Row{"<R>t<a k='1'/><b>x<c>y</c></b></R>", 1, "a=,b=x,"},
                                                Row{"<R/>", 0, ""}, Row{"<R>t</R>", 0, ""}}) {
    RYXmlWrapperBase tree = parse(xml);
    CString line("old");
    EXPECT_EQ(rytree_branch_to_key_value_pairs_str(&tree, &line, '=', ','), result);
    EXPECT_STREQ(line, wanted);
  }
  CString line("old");
  RYXmlWrapperBase tree = parse("<R><a/></R>");
  EXPECT_EQ(with_bad(rytree_branch_to_key_value_pairs_str, &tree, &line, '=', ','), "0 0,0");
  EXPECT_STREQ(line, "");
}

TEST(KeyValue, IsRead) {
  using R = Row<Text, int, Text>;
  for (const auto& [line, result, wanted] :
       Rows{R{"a=1,b=2,", 1, "<R><a>1</a><b>2</b></R>"}, R{"a=1=2=,a=3", 1, "<R><a>1=2=</a><a>3</a></R>"},
            R{" a \t= \n1 2 ,", 1, "<R><a>1 2</a></R>"}, R{"a,=1,,b=,1c=5", 1, "<R><b/></R>"},
            R{"a=\"1,2\",b=3", 1, "<R><a>\"1,2\"</a><b>3</b></R>"},
            R{"a=\"1,b=3", 1, "<R><a>\"1</a><b>3</b></R>"}, R{"", 0, "<R/>"}, R{nullptr, 0, "<R/>"},
            R{" =1", 0, "<R/>"}}) {
    RYXmlWrapperBase tree = parse("<R><old/></R>");
    EXPECT_EQ(rytree_key_value_pairs_str_to_branch(&tree, line, '=', ','), result);
    EXPECT_EQ(text(tree), wanted);
  }
  RYXmlWrapperBase tree = parse("<R/>");
  EXPECT_EQ(with_bad(rytree_key_value_pairs_str_to_branch, &tree, "a=1", '=', ','), "0 0,0");
}
