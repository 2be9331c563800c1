#include <rytree_Utils.h>

#include <climits>
#include <vector>

#include "reports/input_table.h"
#include "tree_text.h"

namespace {

using Text = const char*;

TEST(EscapedString, pieces) {
  const Rows<int, int, char, char, int, char, int, Text> rows = {
      {1, 0, '\0', '\0', 0, '\0', 0, "?$OP:A=1"},
      {1, 0, 'F', 'Y', 0, '\0', 0, "?$OP:F=1Y"},
      {2, 1, 'P', '\0', 0, '\0', 0, "?$OP:P=.2"},
      {1, 0, 'P', 'Y', 0, '\0', 3, "?$OP:P=1Y3"},
      {1, 1, 'G', 'X', 0, 'C', 2, "?$OP:G=C1X2"},
      {4, 0, 'P', 'W', 1, '\0', 1, "?$OP:P G=4W1"},
      {4, 0, 'P', '\0', 0x30002, '\0', 7, "?$OP:P (3)=4"},
      {4, -1, 'P', 'X', 0x10003, '\0', -2, "?$OP:P=.4X"},
      {INT_MIN, 0, '%', '%', INT_MIN + 1, '%', INT_MAX, "?$OP:%=%-2147483648%2147483647"}};
  for (const auto& [number, dot, kind, suffix, option, type, suffix_number, expected] : rows) {
    CString out("old");
    report_get_escaped_data_string(&out, number, dot, kind, suffix, option, type, suffix_number);
    EXPECT_EQ(out, expected);
  }
  report_get_escaped_data_string(nullptr, 1, 0, 'P', 'X', 0x10002, 'C', 1);
}

TEST(EscapedString, data_set_label) {
  CString out("old");
  EXPECT_EQ(report_get_set_data_string(&out, 0) + report_get_set_data_string(nullptr, 0), 2);
  EXPECT_EQ(out, "?$OP:F=1Y");
}

TEST(EscapedString, change_of_type) {
  const Rows<Text, int, Text> rows = {{"?$OP:P=1Y1", 1, "?$OP:G=1Y1"},
                                      {"?$OP:P", 1, "?$OP:G"},
                                      {"?$OP:", 0, "?$OP:"},
                                      {"?$op:P=1", 0, "?$op:P=1"},
                                      {"", 0, ""},
                                      {"ab?$OP:", 1, "ab?$OG:"}};
  for (const auto& [before, result, after] : rows) {
    CString string(before);
    EXPECT_EQ(report_set_escaped_data_string_type(&string, 'G'), result);
    EXPECT_EQ(string, after);
  }
  EXPECT_EQ(report_set_escaped_data_string_type(nullptr, 'G'), 0);
}

/// Tests of the table, with labels in source text.
class InputTable : public testing::Test {
 protected:
  void SetUp() override { block(true); }
  void TearDown() override { block(false); }

  static void block(bool on) { VCTreeAccessBlockLocalization(&on, false); }

  static std::string cell(Text tag, const std::string& id, const std::string& label,
                          const std::string& value) {
    return std::string("<") + tag + " _NodeID=\"" + id + "\" Label=\"" + label + "\">" + value + "</" + tag +
           ">";
  }
  static std::string row(Text tag, Text id, Text set, Text name, const std::string& cells) {
    const std::string attributes =
        std::string(" _NodeID=\"") + id + "\" Label=\"?$OP:F=" + set + "Y\" SubHeader0=\"";
    return std::string("<") + tag + attributes + name + "\">" + cells + "</" + tag + ">";
  }
  static std::string data_cells(Text kind, const std::string& reference) {
    return cell("C1", "114688", "Dep/Indep", kind) + cell("C2", "110592", "Data", "?$OP:P=" + reference) +
           cell("C3", "122880", "Range", "?$OP:G=" + reference);
  }
  static std::string type_cell(Text method) { return cell("C4", "118784", "Weight Type", method); }

  RYXmlWrapperBase table_ = parse("<T/>");
  RYXmlWrapperBase parameters_ = parse("<P><v>0.5</v><b><v>2</v></b><v>x</v><v>5</v><v>6</v><v>7</v></P>");
};

TEST_F(InputTable, cells_follow_the_weight_method) {
  const std::string a = cell("C6", "131072", "a", "0.5");
  const std::string c = cell("C8", "131074", "c", "2");
  const std::string weight = cell("C5", "126976", "Weight Data", "?$OP:P=1W3");
  const std::string empty_b = "<C7 _NodeID=\"131073\" Label=\"b\"/>";
  const Rows<int, std::string> rows = {
      {0, type_cell("No Weighting")},
      {15, "<C4 _NodeID=\"118784\" Label=\"Weight Type\"/>"},
      {1, type_cell("Instrumental") + weight},
      {6, type_cell("Variance = a*y^b") + a + empty_b},
      {8, type_cell("Variance = a*y^b*c^(tlast-t)") + weight + a + empty_b + c}};
  for (const auto& [method, cells] : rows) {
    RYXmlWrapperBase table = parse("<T/>");
    report_make_input_data_table_var_row(&table, 0, 1, 2, true, "y", 1, 0, 2, 0, method, &parameters_, 0, -1);
    EXPECT_EQ(text(at(table, {0})), row("R2", "536872813", "1", "y", data_cells("Dep", "1Y3") + cells));
  }
}

TEST_F(InputTable, xyz_names_and_parameter_blocks) {
  const Rows<int, bool, int, int, Text, Text> rows = {
      {0, false, 0, 0, "?$OP:P=1X1", ""},  {7, false, 0, 0, "?$OP:P=1Y1", ""},
      {7, true, 0, 1, "?$OP:P=1Z1", "5"},  {7, true, 1, -1, "?$OP:P=1Z1", "5"},
      {7, true, -9, -1, "?$OP:P=1Z1", ""}, {7, true, 0, INT_MAX, "?$OP:P=1Z1", ""}};
  for (const auto& [index, dependent, pass, block, reference, b] : rows) {
    RYXmlWrapperBase table = parse("<T/>");
    RYXmlWrapperBase made = report_make_input_data_table_var_row(&table, 0, 0, index, dependent, "n", 1, pass,
                                                                 1, 0, 6, &parameters_, 1, block);
    CString values[2];
    at(made, {1}).NodeValue(values[0], 1, 1, nullptr);
    at(made, {5}).NodeValue(values[1], 1, 1, nullptr);  // b, of a dependent variable
    EXPECT_EQ(values[0], reference);
    EXPECT_EQ(values[1], b) << pass << " " << block;
  }
}

TEST_F(InputTable, words_are_cut_to_32_bits) {
  const Rows<int, int, int, Text, Text, Text> rows = {
      {1, 0, 2, "R3", "536938348", "2"},
      {-1, 0, 2, "R-1", "-63636", "0"},
      {0x2000, 70000, 1, "R78193", "536877276", "8193"},
      {INT_MAX, INT_MAX, INT_MAX, "R-2147483647", "-63637", "-2147483648"}};
  for (const auto& [data, position, variables, expected, id, set] : rows) {
    RYXmlWrapperBase made = report_make_input_data_table_var_row(
        &table_, data, position, INT_MAX, false, nullptr, 1, 0, variables, 0, 8, nullptr, 0, 0);
    EXPECT_EQ(text(made), row(expected, id, set, "", data_cells("Indep", std::string(set) + "X")));
  }
}

/// The arrays of a call.
struct Arrays {
  HostStringArray dependent, independent;
  HostIntArray methods;

  Arrays(const std::vector<Text>& y, const std::vector<Text>& x, const std::vector<int>& numbers) {
    for (const Text name : y) dependent.array().Add(name);
    for (const Text name : x) independent.array().Add(name);
    for (const int number : numbers) methods.array().Add(number);
  }
  void update(RYXmlWrapperBase* table, int sets, int dependents, int independents,
              RYXmlWrapperBase* parameters) {
    report_update_input_data_table(table, 0, sets, dependents, independents, &dependent, &independent, 0,
                                   &methods, parameters, 0);
  }
};

TEST_F(InputTable, later_passes_write_over_earlier_ones) {
  // The second pass finds no number for a and leaves that of the first; from the third on there is no method.
  const Rows<int, Text> rows = {{2, "Variance = a*y^b"}, {3, "No Weighting"}, {INT_MAX, "No Weighting"}};
  for (const auto& [sets, method] : rows) {
    RYXmlWrapperBase table = parse("<T><R2><C1>old</C1></R2><R2/><S/></T>");
    Arrays({"y"}, {"t", "u"}, {8, 6}).update(&table, sets, 1, 2, &parameters_);
    EXPECT_EQ(text(at(table, {0, 0})), "<C1 Label=\"Dep/Indep\">Indep</C1>");
    EXPECT_EQ(text(at(table, {1})) + tag(at(table, {3})), "<R2/>R1");
    EXPECT_EQ(text(at(table, {4})),
              row("R3", "536872814", "1", "y",
                  data_cells("Dep", "1Y1") + type_cell(method) +
                      cell("C5", "126976", "Weight Data", "?$OP:P=1W1") + cell("C6", "131072", "a", "0.5") +
                      cell("C7", "131073", "b", "5") + cell("C8", "131074", "c", "2")));
  }
}

TEST_F(InputTable, methods_and_blocks_of_each_pass_and_variable) {
  Arrays({"y", "z"}, {}, {0, 0, 15, 6}).update(&table_, 2, 2, 0, &parameters_);
  EXPECT_EQ(text(at(table_, {0, 3})), "<C4 _NodeID=\"118784\" Label=\"Weight Type\"/>");
  EXPECT_EQ(at(table_, {1}).GetNodeCount(), 6);  // its block is behind the parameters
  EXPECT_EQ(text(at(table_, {1, 4})), "<C6 _NodeID=\"131072\" Label=\"a\"/>");
}

TEST_F(InputTable, bad_arguments) {
  Arrays arrays({"y"}, {"x"}, {});
  RYXmlWrapperBase dead = dead_node();
  for (RYXmlWrapperBase* const table : {static_cast<RYXmlWrapperBase*>(nullptr), &dead}) {
    arrays.update(table, 1, 1, 1, nullptr);
    RYXmlWrapperBase made =
        report_make_input_data_table_var_row(table, 0, 0, 0, true, "y", 1, 0, 1, 0, 8, &dead, 0, 0);
    EXPECT_EQ(made.IsNodeValid(), 0);
  }
  for (const auto& [sets, dependents, independents] :
       {std::tuple(0, 1, 1), {-1, 1, 1}, {1, 0, 0}, {1, -1, INT_MIN}}) {
    arrays.update(&table_, sets, dependents, independents, &parameters_);
  }
  EXPECT_EQ(text(table_), "<T/>");
  report_update_input_data_table(&table_, 0, 1, 1, 1, nullptr, &arrays.methods, 0, &arrays.dependent, nullptr,
                                 0);
  EXPECT_EQ(text(table_),
            "<T>" + row("R1", "536872812", "1", "", data_cells("Indep", "1X1")) +
                row("R2", "536872813", "1", "", data_cells("Dep", "1Y1") + type_cell("No Weighting")) +
                "</T>");
}

TEST_F(InputTable, many_variables) {
  constexpr int kCount = 20'000;
  Arrays arrays({}, {}, std::vector<int>(kCount, 6));
  RYXmlWrapperBase parameters = parse("<P/>");
  RYXmlWrapperBase node;
  for (int i = 0; i < 3 * kCount; ++i)
    parameters.AddTextNode(node, std::to_string(i).c_str(), "v", -1, 0, nullptr);
  for (int round = 0; round < 2; ++round) arrays.update(&table_, 1, kCount, INT_MIN, &parameters);
  ASSERT_EQ(table_.GetNodeCount(), kCount);
  EXPECT_EQ(text(at(table_, {kCount - 1, 5})), cell("C7", "131073", "b", std::to_string(3 * kCount - 2)));
}

TEST(VariableNode, input_and_output) {
  // Bits: input, output, the same when strict.
  const Rows<Text, int> rows = {{"<V/>", 0},
                                {"<V><io>0</io></V>", 0b1010},
                                {"<V><io>1</io></V>", 0b0101},
                                {"<V><x/><io>2</io></V>", 0b1100},
                                {"<V><io>-1</io></V>", 0b1100},
                                {"<V><io/></V>", 0b1010},
                                {"<V><io>one</io></V>", 0b1010},
                                {"<V><x><io>0</io></x></V>", 0}};
  for (const auto& [xml, expected] : rows) {
    RYXmlWrapperBase node = parse(xml);
    const int bits = XVarNode_IsInput(node, false) << 3 | XVarNode_IsOutput(node, false) << 2 |
                     XVarNode_IsInput(node, true) << 1 | static_cast<int>(XVarNode_IsOutput(node, true));
    EXPECT_EQ(bits, expected) << xml;
    EXPECT_EQ(text(node), xml);
  }
  RYXmlWrapperBase dead = dead_node();
  EXPECT_FALSE(XVarNode_IsInput(dead, false) || XVarNode_IsOutput(dead, false));
}

TEST(InteractiveOptions, nearest_setting_wins) {
  const RYXmlWrapperBase root = parse(
      "<A><B InteractiveOptions=\"6\"><C><D/></C><C InteractiveOptions=\"0\"/><C "
      "InteractiveOptions=\"x\"/></B>"
      "<B InteractiveOptions=\"-2147483648\"/></A>");
  const Rows<RYXmlWrapperBase, unsigned long, int> rows = {{root, ~0ul, 0},
                                                           {at(root, {0}), 2, 1},
                                                           {at(root, {0, 0, 0}), 2, 1},
                                                           {at(root, {0, 0, 0}), 1, 0},
                                                           {at(root, {0, 1}), 6, 0},
                                                           {at(root, {0, 2}), 4, 1},
                                                           {at(root, {0}), 0, 0},
                                                           {at(root, {1}), 0x80000000, 1},
                                                           {at(root, {1}), 0x7FFFFFFF, 0}};
  for (const auto& [start, mask, expected] : rows) {
    RYXmlWrapperBase node = start;
    EXPECT_EQ(vctree_test_ICOPT_recursively(node, mask), expected) << mask;
  }
  RYXmlWrapperBase wide = at(root, {1});
  if constexpr (sizeof(unsigned long) > sizeof(DWORD)) {
    EXPECT_EQ(vctree_test_ICOPT_recursively(wide, ~0xFFFFFFFFul), 0);
  }
  RYXmlWrapperBase dead = dead_node();
  EXPECT_EQ(vctree_test_ICOPT_recursively(dead, ~0ul), 0);
}

}  // namespace
