#include <rytree_Utils/input_table.h>
#include <rytree_Utils/localization.h>

#include <climits>

#include "call_arguments.h"

namespace {

/// Tests of the table, with labels in source text.
class InputTable : public testing::Test {
 protected:
  void SetUp() override { block(true); }
  void TearDown() override { block(false); }

  static void block(bool on) { VCTreeAccessBlockLocalization(&on, false); }

  static std::string cell(int column, const std::string& value) {
    const Text starts[] = {"<C1@114688 Label='Dep/Indep'>",   "<C2@110592 Label='Data'>",
                           "<C3@122880 Label='Range'>",       "<C4@118784 Label='Weight Type'>",
                           "<C5@126976 Label='Weight Data'>", "<C6@131072 Label='a'>",
                           "<C7@131073 Label='b'>",           "<C8@131074 Label='c'>"};
    return text(parse(with_ids(starts[column - 1]) + value + "</C" + std::to_string(column) + ">"));
  }
  static std::string row(const std::string& start, Text set, Text name, const std::string& cells) {
    return text(parse("<" + with_ids(start) + " Label='?$OP:F=" + set + "Y' SubHeader0='" + name + "'>" +
                      cells + "</" + start.substr(0, start.find('@')) + ">"));
  }
  static std::string data_cells(Text kind, const std::string& reference) {
    return cell(1, kind) + cell(2, "?$OP:P=" + reference) + cell(3, "?$OP:G=" + reference);
  }

  RYXmlWrapperBase table_ = parse("<T/>");
  RYXmlWrapperBase parameters_ = parse("<P><v>0.5</v><b><v>2</v></b><v>x</v><v>5</v><v>6</v><v>7</v></P>");
};

TEST_F(InputTable, CellsFollowTheWeightMethod) {
  const std::string weight = cell(5, "?$OP:P=1W3");
  const std::string ab = cell(6, "0.5") + cell(7, "");
  const std::string c = cell(8, "2");
  for (const auto& [method, cells] :
       Rows{Row{0, cell(4, "No Weighting")}, Row{1, cell(4, "Instrumental") + weight},
            Row{6, cell(4, "Variance = a*y^b") + ab},
            Row{8, cell(4, "Variance = a*y^b*c^(tlast-t)") + weight + ab + c}}) {
    RYXmlWrapperBase table = parse("<T/>");
    report_make_input_data_table_var_row(&table, 0, 1, 2, true, "y", 1, 0, 2, 0, method, &parameters_, 0, -1);
    EXPECT_EQ(text(at(table, {0})), row("R2@536872813", "1", "y", data_cells("Dep", "1Y3") + cells));
  }
}

TEST_F(InputTable, XyzNamesAndParameterBlocks) {
  for (const auto& [index, dependent, pass, block, letter, b] :
       Rows{Row{0, false, 0, 0, "X", ""}, Row{7, false, 0, 0, "Y", ""}, Row{7, true, 0, 1, "Z", "5"},
            Row{7, true, 1, -1, "Z", "5"}, Row{7, true, -9, -1, "Z", ""},
            Row{7, true, -1'000'000'000, -1, "Z", ""}, Row{7, true, 0, INT_MAX, "Z", ""}}) {
    RYXmlWrapperBase table = parse("<T/>");
    RYXmlWrapperBase made = report_make_input_data_table_var_row(&table, 0, 0, index, dependent, "n", 1, pass,
                                                                 1, 0, 6, &parameters_, 1, block);
    EXPECT_EQ(text(at(made, {1})), cell(2, "?$OP:P=1" + std::string(letter) + "1"));
    EXPECT_EQ(text(at(made, {5})), dependent ? cell(7, b) : "");
  }
}

TEST_F(InputTable, WordsAreCutTo32Bits) {
  for (const auto& [data, position, variables, start, set] :
       Rows{Row{1, 0, 2, "R3@536938348", "2"}, Row{0x2000, 70000, 1, "R78193@536877276", "8193"},
            Row{INT_MAX, INT_MAX, INT_MAX, "R-2147483647@-63637", "-2147483648"}}) {
    RYXmlWrapperBase made = report_make_input_data_table_var_row(
        &table_, data, position, INT_MAX, false, nullptr, 1, 0, variables, 0, 8, nullptr, 0, 0);
    EXPECT_EQ(text(made), row(start, set, "", data_cells("Indep", std::string(set) + "X")));
  }
}

/// The arrays of a call.
struct Arrays {
  Strings dependent, independent;
  Ints methods;

  void update(RYXmlWrapperBase* table, int sets, int y, int x, RYXmlWrapperBase* parameters) {
    report_update_input_data_table(table, 0, sets, y, x, &dependent, &independent, 0, &methods, parameters,
                                   0);
  }
};

TEST_F(InputTable, LaterPassesWriteOverEarlierOnes) {
  // The second pass finds no number for a and leaves that of the first; from the third on there is no method.
  for (const auto& [sets, method] :
       Rows<int, Text>{{2, "Variance = a*y^b"}, {3, "No Weighting"}, {INT_MAX, "No Weighting"}}) {
    RYXmlWrapperBase table = parse("<T><R2><C1>old</C1></R2><R2/><S/></T>");
    Arrays{Strings("y"), Strings("t,u"), Ints("8,6")}.update(&table, sets, 1, 2, &parameters_);
    EXPECT_EQ(text(at(table, {0, 0})), "<C1 Label=\"Dep/Indep\">Indep</C1>");
    EXPECT_EQ(text(at(table, {1})), "<R2/>");
    EXPECT_EQ(tag(at(table, {3})), "R1");
    EXPECT_EQ(text(at(table, {4})), row("R3@536872814", "1", "y",
                                        data_cells("Dep", "1Y1") + cell(4, method) + cell(5, "?$OP:P=1W1") +
                                            cell(6, "0.5") + cell(7, "5") + cell(8, "2")));
  }
}

TEST_F(InputTable, MethodsAndBlocksOfEachPassAndVariable) {
  Arrays{Strings("y,z"), Strings(), Ints("0,0,15,6")}.update(&table_, 2, 2, 0, &parameters_);
  EXPECT_EQ(at(table_, {1}).GetNodeCount(), 6);  // its block is after the last parameter
  EXPECT_EQ(text(at(table_, {0, 3})), "<C4 _NodeID=\"118784\" Label=\"Weight Type\"/>");
  EXPECT_EQ(text(at(table_, {1, 4})), "<C6 _NodeID=\"131072\" Label=\"a\"/>");
}

TEST_F(InputTable, BadArguments) {
  Arrays arrays{Strings("y"), Strings("x"), Ints()};
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
            "<T>" + row("R1@536872812", "1", "", data_cells("Indep", "1X1")) +
                row("R2@536872813", "1", "", data_cells("Dep", "1Y1") + cell(4, "No Weighting")) + "</T>");
}

}  // namespace
