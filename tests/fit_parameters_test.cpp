// The parameter branch of a fit, and values between vector nodes and arrays.
#include <rytree_Utils/fitting.h>
#include <rytree_Utils/lookup.h>

#include <chrono>
#include <climits>
#include <limits>
#include <random>

#include "tests/tree_text.h"

namespace {

std::string grid(int count) {
  const Rows<const char*, int> rows = {{"Share", 5000},
                                       {"Fixed", 6000},
                                       {"FixedValues", 15000},
                                       {"LowerBounds", 7000},
                                       {"LowerBoundsExclusive", 8000},
                                       {"LowerBoundsEnable", 9000},
                                       {"UpperBounds", 10000},
                                       {"UpperBoundsExclusive", 11000},
                                       {"UpperBoundsEnable", 12000},
                                       {"Values", 13000},
                                       {"SignificantDigit", 14000}};
  std::string xml =
      "<Root DataID=\"2900\"><AutoParamsInit DataID=\"2906\"/><LinearConstraints DataID=\"2907\"/>";
  for (const auto& [name, base] : rows) {
    xml += "<" + std::string(name) + " DataID=\"" + std::to_string(base) + "\"";
    if (count > 0) xml += ">";
    for (int i = 1; i <= count; ++i) {
      xml += "<Value" + std::to_string(i) + " DataID=\"" + std::to_string(base + i) + "\"/>";
    }
    xml += count > 0 ? "</" + std::string(name) + ">" : "/>";
  }
  return xml + "</Root>";
}

TEST(FitParameters, GrowAndShrinkOnTheirGrid) {
  RYXmlWrapperBase tree;
  const Rows<int, int> rows = {{3, 3}, {3, 3}, {2, 2}, {4, 4}, {-1, 4}, {INT_MIN, 4}, {0, 0}};
  for (const auto& [count, left] : rows) {
    rytree_nlsf_add_params_node_DataID(&tree, count);
    EXPECT_EQ(text(tree), grid(left)) << count;
  }
  rytree_nlsf_add_params_node_DataID(nullptr, 3);
  RYXmlWrapperBase old =
      parse("<Root><LinearConstraints/><Mine DataID=\"5000\"><V DataID=\"5002\"/></Mine></Root>");
  rytree_nlsf_add_params_node_DataID(&old, 2);
  const std::string start =
      "<Root DataID=\"2900\"><LinearConstraints DataID=\"2907\"/><Mine DataID=\"5000\"><V DataID=\"5002\"/>"
      "<Value1 DataID=\"5001\"/></Mine><AutoParamsInit DataID=\"2906\"/><Fixed DataID=\"6000\">";
  EXPECT_EQ(text(old).substr(0, start.size()), start);
}

// What a child by child search makes of a vector node.
void write_literally(const std::vector<int>& values, RYXmlWrapperBase& vector) {
  int base = 0;
  vector.GetDataID(base);
  for (int i = 1; i <= static_cast<int>(values.size()); ++i) {
    RYXmlWrapperBase child;
    rytree_check_get_node_by_dataid(&vector, &child, ("Value" + std::to_string(i)).c_str(), base + i, nullptr,
                                    nullptr);
    int value = values[static_cast<std::size_t>(i) - 1];
    child.NodeValue(value, 0);
  }
}

TEST(FitParameters, AreFoundAsByOneSearchEach) {
  std::mt19937 random(7);
  for (int round = 0; round < 500; ++round) {
    const int size = static_cast<int>(random() % 12);
    std::string xml = "<V DataID=\"" + std::to_string(static_cast<int>(random() % 8) - 4) + "\">";
    for (int left = static_cast<int>(random()) % (size + 1); left > 0; --left) {
      xml += random() % 5 == 0
                 ? "<x/>"
                 : "<x DataID=\"" + std::to_string(static_cast<int>(random() % 20) - 5) + "\"/>";
    }
    RYXmlWrapperBase ours = parse(xml + "</V>");
    RYXmlWrapperBase literal = parse(xml + "</V>");
    HostIntArray values;
    std::vector<int> plain;
    for (int i = 0; i < size; ++i) plain.push_back(values.array()[values.array().Add(100 + i)]);
    if (ours.GetNodeCount() > size) continue;
    rytree_value_from_vec_int_to_tree_sub_nodes(&values, &ours);
    write_literally(plain, literal);
    ASSERT_EQ(text(ours), text(literal)) << xml << " size " << size;
  }
}

TEST(FitParameters, CostsGrowInStepWithTheirCount) {
  const auto build = [](int count) {
    const auto start = std::chrono::steady_clock::now();
    RYXmlWrapperBase tree;
    rytree_nlsf_add_params_node_DataID(&tree, count);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / count;
  };
  const double few = build(999);
  EXPECT_LT(build(20000), 20 * few);
}

TEST(VectorValues, ReadBlocksOfTheElementType) {
  RYXmlWrapperBase vector = parse(
      "<Fixed><a>0</a><b>1</b><c>2</c><d>1.5</d><e>-1.23456789e-300</e><f>nan</f><g/><h>1</h><i>9</i></"
      "Fixed>");
  const Rows<int, int, bool, std::vector<bool>> bools = {{2, 0, true, {false, true}},
                                                         {1, 2, false, {true}},
                                                         {3, 0, false, {false, true, true}},
                                                         {1, 3, false, {true}},
                                                         {0, 5, true, {}},
                                                         {1, 9, false, {true}},
                                                         {2, -1, false, {true, true}},
                                                         {1, INT_MAX, false, {true}},
                                                         {2, INT_MIN, false, {true, true}}};
  for (const auto& [size, block, result, wanted] : bools) {
    HostBoolArray array;
    for (int i = 0; i < size; ++i) array.array().Add(true);
    EXPECT_EQ(rytree_nlf_set_bool_param_from_user_params_setting(&vector, &array, block), result) << block;
    for (int i = 0; i < size; ++i)
      EXPECT_EQ(array.array()[i], wanted[static_cast<std::size_t>(i)]) << block << i;
  }
  HostDoubleArray doubles;
  for (int i = 0; i < 3; ++i) doubles.array().Add(i + 40);
  EXPECT_TRUE(rytree_nlf_set_double_param_from_user_params_setting(&vector, &doubles, 1));
  EXPECT_EQ(doubles.array()[0], 1.5);
  EXPECT_EQ(doubles.array()[1], 41);
  EXPECT_EQ(doubles.array()[2], 42);
  EXPECT_FALSE(rytree_nlf_set_double_param_from_user_params_setting(&vector, &doubles, 2)) << "an empty text";
  HostIntArray ints;
  ints.array().SetSize(3);
  EXPECT_TRUE(rytree_nlf_set_int_param_from_user_params_setting(&vector, &ints, 0));
  EXPECT_EQ(ints.array()[2], 2);
  EXPECT_FALSE(rytree_nlf_set_int_param_from_user_params_setting(&vector, &ints, 1));
  EXPECT_FALSE(rytree_nlf_set_int_param_from_user_params_setting(&vector, &doubles, 0));
  EXPECT_FALSE(rytree_nlf_set_int_param_from_user_params_setting(nullptr, &ints, 0));
  RYXmlWrapperBase lower = parse("<fixed><a>1</a></fixed>");
  ints.array().SetSize(0);
  EXPECT_FALSE(rytree_nlf_set_int_param_from_user_params_setting(&lower, &ints, 0));
}

TEST(VectorValues, ReadOverEmptyChildren) {
  RYXmlWrapperBase vector = parse("<V><a>1</a><b/><c>x</c><d>1e+02</d><e><f/></e><g>7</g></V>");
  const Rows<int, int, std::vector<int>> rows = {
      {8, 5, {1, 90, 100, 90, 7, 90, 90, 90}}, {2, 2, {1, 90}}, {0, 0, {}}};
  for (const auto& [size, filled, wanted] : rows) {
    HostIntArray array;
    for (int i = 0; i < size; ++i) array.array().Add(90);
    EXPECT_EQ(rytree_value_from_tree_sub_nodes_to_vector_int(&vector, &array), filled);
    for (int i = 0; i < size; ++i) EXPECT_EQ(array.array()[i], wanted[static_cast<std::size_t>(i)]) << i;
  }
  HostBoolArray bools;
  bools.array().SetSize(2);
  EXPECT_EQ(rytree_value_from_tree_sub_nodes_to_vector_bool(&vector, &bools), 2);
  EXPECT_TRUE(bools.array()[0]);
  HostDoubleArray doubles;
  EXPECT_EQ(rytree_value_from_tree_sub_nodes_to_vector_double(&vector, nullptr), -1);
  EXPECT_EQ(rytree_value_from_tree_sub_nodes_to_vector_double(&vector, &bools), -1);
  EXPECT_EQ(rytree_value_from_tree_sub_nodes_to_vector_double(nullptr, &doubles), -1);
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(rytree_value_from_tree_sub_nodes_to_vector_double(&dead, &doubles), -1);
  doubles.array().SetSize(1);
  EXPECT_EQ(rytree_value_from_tree_sub_nodes_to_vector_double(&vector, &doubles), 1);
  EXPECT_EQ(doubles.array()[0], 1);
}

TEST(VectorValues, AreWrittenByDataIdOrByPlace) {
  const Rows<const char*, std::vector<double>, const char*> rows = {
      {"<V DataID=\"10\"><x DataID=\"12\"/></V>",
       {1.5, 2},
       "<V DataID=\"10\"><x DataID=\"12\">2</x><Value1 DataID=\"11\">1.5</Value1></V>"},
      {"<V DataID=\"10\"><x DataID=\"12\"/><y/><z/></V>",
       {5, 6},
       "<V DataID=\"10\"><x DataID=\"12\">5</x><y>6</y></V>"},
      {"<V DataID=\"10\"><x/></V>", {}, "<V DataID=\"10\"/>"},
      {"<V DataID=\"10\">t</V>", {}, "<V DataID=\"10\">t</V>"},
      {"<V><x/></V>", {1}, "<V><x/></V>"},
  };
  for (const auto& [before, values, after] : rows) {
    RYXmlWrapperBase vector = parse(before);
    HostDoubleArray array;
    for (const double value : values) array.array().Add(value);
    rytree_value_from_vec_double_to_tree_sub_nodes(&array, &vector);
    EXPECT_EQ(text(vector), after);
    rytree_value_from_vec_bool_to_tree_sub_nodes(&array, &vector);
    rytree_value_from_vec_int_to_tree_sub_nodes(nullptr, &vector);
    rytree_value_from_vec_double_to_tree_sub_nodes(&array, nullptr);
    EXPECT_EQ(text(vector), after);
  }
  HostBoolArray many;
  for (int i = 0; i < 1200; ++i) many.array().Add(i % 2 == 1);
  RYXmlWrapperBase vector = parse("<V DataID=\"1000\"/>");
  rytree_value_from_vec_bool_to_tree_sub_nodes(&many, &vector);
  ASSERT_EQ(vector.GetNodeCount(), 999);
  EXPECT_EQ(text(at(vector, {998})), "<Value999 DataID=\"1999\">0</Value999>");
  EXPECT_EQ(text(at(vector, {997})), "<Value998 DataID=\"1998\">1</Value998>");
}

}  // namespace
