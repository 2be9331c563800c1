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
      {2, 1, 'P', '\0', 0, '\0', 0, "?$OP:P=.2"},
      {4, 0, 'P', 'W', 1, '\0', 1, "?$OP:P G=4W1"},
      {4, 0, 'P', '\0', 0x30002, '\0', 7, "?$OP:P (3)=4"},
      {4, -1, 'P', 'X', 0x10003, '\0', -2, "?$OP:P=.4X"},
      {INT_MIN, 1, '%', '%', INT_MIN + 1, '%', INT_MAX, "?$OP:%=%-2147483648%2147483647"}};
  for (const auto& [number, dot, kind, suffix, option, type, suffix_number, expected] : rows) {
    CString out("old");
    report_get_escaped_data_string(&out, number, dot, kind, suffix, option, type, suffix_number);
    EXPECT_EQ(out, expected);
  }
  report_get_escaped_data_string(nullptr, 1, 0, 'P', 'X', 0x10002, 'C', 1);
}

TEST(EscapedString, data_set_label_and_change_of_type) {
  CString out("old");
  EXPECT_EQ(report_get_set_data_string(&out, 0) + report_get_set_data_string(nullptr, 0), 2);
  EXPECT_EQ(out, "?$OP:F=1Y");
  const Rows<Text, int, Text> rows = {
      {"?$OP:P", 1, "?$OP:G"}, {"?$OP:", 0, "?$OP:"}, {"?$op:P=1", 0, "?$op:P=1"}, {"ab?$OP:", 1, "ab?$OG:"}};
  for (const auto& [before, result, after] : rows) {
    out = before;
    EXPECT_EQ(report_set_escaped_data_string_type(&out, 'G'), result);
    EXPECT_EQ(out, after);
  }
  EXPECT_EQ(report_set_escaped_data_string_type(nullptr, 'G'), 0);
}

/// Tests of the table, with labels in source text.
class InputTable : public testing::Test {
 protected:
  void SetUp() override { block(true); }
  void TearDown() override { block(false); }

  static void block(bool on) { VCTreeAccessBlockLocalization(&on, false); }

  static std::string cell(const std::string& tag, Text id, Text label, const std::string& value) {
    return "<" + tag + " _NodeID=\"" + id + "\" Label=\"" + label + "\">" + value + "</" + tag + ">";
  }
  static std::string row(const std::string& tag, Text id, Text set, Text name, const std::string& cells) {
    return "<" + tag + " _NodeID=\"" + id + "\" Label=\"?$OP:F=" + set + "Y\" SubHeader0=\"" + name + "\">" +
           cells + "</" + tag + ">";
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
  const std::string weight = cell("C5", "126976", "Weight Data", "?$OP:P=1W3");
  const std::string ab = cell("C6", "131072", "a", "0.5") + "<C7 _NodeID=\"131073\" Label=\"b\"/>";
  const Rows<int, std::string> rows = {
      {0, type_cell("No Weighting")},
      {1, type_cell("Instrumental") + weight},
      {6, type_cell("Variance = a*y^b") + ab},
      {8, type_cell("Variance = a*y^b*c^(tlast-t)") + weight + ab + cell("C8", "131074", "c", "2")}};
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
    EXPECT_EQ(text(at(made, {1})), cell("C2", "110592", "Data", reference));
    EXPECT_EQ(text(at(made, {5})), dependent ? text(parse(cell("C7", "131073", "b", b))) : "") << block;
  }
}

TEST_F(InputTable, words_are_cut_to_32_bits) {
  const Rows<int, int, int, Text, Text, Text> rows = {
      {1, 0, 2, "R3", "536938348", "2"},
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
  void update(RYXmlWrapperBase* table, int sets, int y, int x, RYXmlWrapperBase* parameters) {
    report_update_input_data_table(table, 0, sets, y, x, &dependent, &independent, 0, &methods, parameters,
                                   0);
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
  EXPECT_EQ(at(table_, {1}).GetNodeCount(), 6);  // its block is behind the parameters
  EXPECT_EQ(text(at(table_, {0, 3})) + text(at(table_, {1, 4})),
            "<C4 _NodeID=\"118784\" Label=\"Weight Type\"/><C6 _NodeID=\"131072\" Label=\"a\"/>");
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
  for (const auto& [sets, y, x] : Rows<int, int, int>{{0, 1, 1}, {1, 0, 0}, {1, -1, INT_MIN}})
    arrays.update(&table_, sets, y, x, &parameters_);
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
  std::string all;
  for (const Text inside :
       {"", "<io>0</io>", "<io>1</io>", "<x/><io>2</io>", "<io>-1</io>", "<io>one</io>"}) {
    RYXmlWrapperBase node = parse("<V>" + std::string(inside) + "</V>");
    for (const bool strict : {false, true})
      all.append(XVarNode_IsInput(node, strict) ? "i" : "-")
          .append(XVarNode_IsOutput(node, strict) ? "o" : "-");
    all += " ";
  }
  EXPECT_EQ(all, "---- i-i- -o-o io-- io-- i-i- ");
}

TEST(InteractiveOptions, nearest_setting_wins) {
  const RYXmlWrapperBase root = parse(
      "<A><B InteractiveOptions='6'><C><D/></C><C InteractiveOptions='0'/><C InteractiveOptions='x'/></B>"
      "<B InteractiveOptions='-2147483648'/></A>");
  const auto test = [](RYXmlWrapperBase node, unsigned long mask) {
    return vctree_test_ICOPT_recursively(node, mask);
  };
  EXPECT_EQ(test(root, ~0UL) + test(dead_node(), ~0UL), 0);
  for (const RYXmlWrapperBase& node : {at(root, {0}), at(root, {0, 0, 0}), at(root, {0, 2})})
    EXPECT_EQ(test(node, 4) * 10 + test(node, 1), 10);
  EXPECT_EQ(test(at(root, {0, 1}), 6), 0);
  EXPECT_EQ(test(at(root, {1}), 0x80000000), 1);
  EXPECT_EQ(test(at(root, {1}), ~0UL ^ 0x80000000), 0) << "the options are 32 bits without a sign";
}

}  // namespace
