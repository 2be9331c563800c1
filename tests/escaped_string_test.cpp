#include <rytree_Utils/escaped_string.h>

#include <climits>

#include "tree_text.h"

TEST(EscapedString, Pieces) {
  for (const auto& [number, dot, kind, suffix, option, type, suffix_number, expected] :
       Rows{Row{1, 0, '\0', '\0', 0, '\0', 0, "?$OP:A=1"}, Row{2, 1, 'P', '\0', 0, '\0', 0, "?$OP:P=.2"},
            Row{4, 0, 'P', 'W', 1, '\0', 1, "?$OP:P G=4W1"},
            Row{4, 0, 'P', '\0', 0x30002, '\0', 7, "?$OP:P (3)=4"},
            Row{4, -1, 'P', 'X', 0x10003, '\0', -2, "?$OP:P=.4X"},
            Row{INT_MIN, 1, '%', '%', INT_MIN + 1, '%', INT_MAX, "?$OP:%=%-2147483648%2147483647"}}) {
    CString out("old");
    report_get_escaped_data_string(&out, number, dot, kind, suffix, option, type, suffix_number);
    EXPECT_EQ(out, expected);
  }
  report_get_escaped_data_string(nullptr, 1, 0, 'P', 'X', 0x10002, 'C', 1);
}

TEST(EscapedString, LabelOfADataSet) {
  CString out("old");
  EXPECT_EQ(report_get_set_data_string(&out, 0), 1);
  EXPECT_EQ(out, "?$OP:F=1Y");
  EXPECT_EQ(report_get_set_data_string(nullptr, 0), 1);
}

TEST(EscapedString, ChangeOfType) {
  using R = Row<Text, int, Text>;
  for (const auto& [before, result, after] : Rows{R{"?$OP:P", 1, "?$OP:G"}, R{"?$OP:", 0, "?$OP:"},
                                                  R{"?$op:P=1", 0, "?$op:P=1"}, R{"ab?$OP:", 1, "ab?$OG:"}}) {
    CString out(before);
    EXPECT_EQ(report_set_escaped_data_string_type(&out, 'G'), result);
    EXPECT_EQ(out, after);
  }
  EXPECT_EQ(report_set_escaped_data_string_type(nullptr, 'G'), 0);
}
