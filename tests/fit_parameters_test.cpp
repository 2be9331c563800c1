#include <rytree_Utils/fit_parameters.h>

#include <climits>

#include "call_arguments.h"

namespace {

// Calls with a vector node and an array that holds a list: the result, and the list that the array then holds.
template <class Array, class... Rest>
std::string left(const std::string& list, auto call, RYXmlWrapperBase* vector, Rest... rest) {
  Array array(list);
  const int result = call(vector, &array, rest...);
  return std::to_string(result) + ": " + list_of(array.array());
}

std::string grid(int count) {
  std::istringstream vectors(
      "Share 5000 Fixed 6000 FixedValues 15000 LowerBounds 7000 LowerBoundsExclusive 8000 "
      "LowerBoundsEnable 9000 UpperBounds 10000 UpperBoundsExclusive 11000 UpperBoundsEnable 12000 "
      "Values 13000 SignificantDigit 14000");
  CString xml("<Root DataID='2900'><AutoParamsInit DataID='2906'/><LinearConstraints DataID='2907'/>");
  std::string name;
  for (int base = 0; vectors >> name >> base;) {
    xml.AppendFormat("<%s DataID='%d'>", name.c_str(), base);
    for (int i = 1; i <= count; ++i) xml.AppendFormat("<Value%d DataID='%d'/>", i, base + i);
    xml.AppendFormat("</%s>", name.c_str());
  }
  return text(parse((xml + "</Root>").GetString()));
}

TEST(FitParameters, GrowAndShrinkOnTheirGrid) {
  RYXmlWrapperBase tree;
  for (const auto& [count, left] :
       Rows<int, int>{{3, 3}, {3, 3}, {2, 2}, {4, 4}, {-1, 4}, {INT_MIN, 4}, {0, 0}}) {
    rytree_nlsf_add_params_node_DataID(&tree, count);
    EXPECT_EQ(text(tree), grid(left));
  }
  rytree_nlsf_add_params_node_DataID(nullptr, 3);
  RYXmlWrapperBase none;
  for (const int too_many : {100'001, INT_MAX}) rytree_nlsf_add_params_node_DataID(&none, too_many);
  EXPECT_EQ(none.IsNodeValid(), 0);
  tree = parse("<Root><LinearConstraints/><Mine DataID='5000'><V DataID='5002'/></Mine></Root>");
  rytree_nlsf_add_params_node_DataID(&tree, 2);
  const std::string start =
      "<Root DataID=\"2900\"><LinearConstraints DataID=\"2907\"/><Mine DataID=\"5000\"><V DataID=\"5002\"/>"
      "<Value1 DataID=\"5001\"/></Mine><AutoParamsInit DataID=\"2906\"/><Fixed DataID=\"6000\">";
  EXPECT_EQ(text(tree).substr(0, start.size()), start);
}

TEST(VectorValues, BlocksOfTheElementType) {
  RYXmlWrapperBase vector =
      parse("<Fixed><a>0</a><b>1</b><c>2</c><d>1.5</d><e>-1.23456789e-300</e><f>nan</f><g/><h>1</h></Fixed>");
  RYXmlWrapperBase lower = parse("<fixed><a>1</a></fixed>");
  const auto bools = rytree_nlf_set_bool_param_from_user_params_setting;
  const auto doubles = rytree_nlf_set_double_param_from_user_params_setting;
  const auto ints = rytree_nlf_set_int_param_from_user_params_setting;
  for (const auto& [values, block, expected] :
       Rows{Row{"1,1", 0, "1: 0,1"}, Row{"1", 2, "0: 1"}, Row{"1", 3, "0: 1"}, Row{"1,1,1", 0, "0: 0,1,1"},
            Row{"", 5, "1: "}, Row{"1", 9, "0: 1"}, Row{"1,1", INT_MIN, "0: 1,1"},
            Row{"1,1,1,1", 1 << 30, "0: 1,1,1,1"}})
    EXPECT_EQ(left<Bools>(values, bools, &vector, block), expected);
  EXPECT_EQ(left<Doubles>("40,41,42", doubles, &vector, 1), "1: 1.5,41,42");
  EXPECT_EQ(left<Doubles>("4", doubles, &vector, 6), "0: 4");
  EXPECT_EQ(left<Ints>("9,9,9", ints, &vector, 0), "1: 0,1,2");
  EXPECT_EQ(left<Ints>("9", ints, &vector, 3), "0: 9");
  Ints nine("9");
  EXPECT_EQ(with_bad(ints, &vector, &nine, 0), "0 0,0 0");
  EXPECT_EQ(list_of(nine.array()), "9");
  EXPECT_EQ(left<Ints>("", ints, &lower, 0), "0: ");
}

TEST(VectorValues, ReadingSkipsEmptyChildren) {
  RYXmlWrapperBase vector = parse("<V><a>1</a><b/><c>x</c><d>1e+02</d><e><f/></e><g>7</g></V>");
  const auto bools = rytree_value_from_tree_sub_nodes_to_vector_bool;
  const auto doubles = rytree_value_from_tree_sub_nodes_to_vector_double;
  const auto ints = rytree_value_from_tree_sub_nodes_to_vector_int;
  EXPECT_EQ(left<Ints>("90,90,90,90,90,90,90", ints, &vector), "5: 1,90,100,90,7,90,90");
  EXPECT_EQ(left<Ints>("90,90", ints, &vector), "2: 1,90");
  EXPECT_EQ(left<Ints>("", ints, &vector), "0: ");
  EXPECT_EQ(left<Bools>("0,0", bools, &vector), "2: 1,0");
  EXPECT_EQ(left<Doubles>("0", doubles, &vector), "1: 1");
  Doubles array;
  EXPECT_EQ(with_bad(doubles, &vector, &array), "-1 -1,-1 -1");
}

TEST(VectorValues, WrittenByDataIdOrByPlace) {
  const auto write = rytree_value_from_vec_double_to_tree_sub_nodes;
  for (const auto& [before, values, after] :
       Rows{Row{"<V #10><x #12/></V>", "1.5,2", "<V #10><x #12>2</x><Value1 #11>1.5</Value1></V>"},
            Row{"<V #10><x #12/><y/><z/></V>", "5,6", "<V #10><x #12>5</x><y>6</y></V>"},
            Row{"<V #10><x #12/><y #11/><z #11/></V>", "5,6,7,8",
                "<V #10><x #12>6</x><y #11>5</y><z #11/><Value3 #13>7</Value3><Value4 #14>8</Value4></V>"},
            Row{"<V #-3><x/><y #-2/></V>", "5,6,7",
                "<V #-3><x/><y #-2>5</y><Value2>6</Value2><Value3>7</Value3></V>"},
            Row{"<V #10>t</V>", "", "<V #10>t</V>"}, Row{"<V><x/></V>", "1", "<V><x/></V>"}}) {
    RYXmlWrapperBase vector = parse_ids(before);
    Doubles array(values);
    with_bad(write, &array, &vector);
    EXPECT_EQ(text(vector), text(parse_ids(before)));
    write(&array, &vector);
    EXPECT_EQ(text(vector), text(parse_ids(after)));
  }
}

TEST(VectorValues, AtMost999AreWritten) {
  RYXmlWrapperBase vector = parse("<V DataID='1000'/>");
  Bools many("0,1", 600);
  rytree_value_from_vec_bool_to_tree_sub_nodes(&many, &vector);
  ASSERT_EQ(vector.GetNodeCount(), 999);
  EXPECT_EQ(text(at(vector, {997})), "<Value998 DataID=\"1998\">1</Value998>");
  EXPECT_EQ(text(at(vector, {998})), "<Value999 DataID=\"1999\">0</Value999>");
}

}  // namespace
