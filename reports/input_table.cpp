// The input-data table of a report: a row for each variable, a cell for each of its columns.
#include <rytree_Utils/escaped_string.h>
#include <rytree_Utils/input_table.h>
#include <rytree_Utils/lookup.h>
#include <rytree_Utils/weighting.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "frame/attributes.h"
#include "frame/check_get.h"
#include "frame/children.h"
#include "frame/children_by_tag.h"
#include "frame/flag.h"
#include "frame/host_arrays.h"
#include "frame/node_text.h"
#include "frame/words.h"
#include "reports/localization.h"

namespace {

constexpr const char* kNameAttribute = "SubHeader0";
constexpr int kFirstRowId = 1900;
constexpr int kRowIds = 0x10000;  // so many rows of a data set have node IDs of their own
constexpr int kParameterCount = 3;

struct Column {
  int number;
  int node_id;
  const char* label;
};
constexpr Column kKind = {1, 0x1C000, "Dep/Indep"};
constexpr Column kData = {2, 0x1B000, "Data"};
constexpr Column kRange = {3, 0x1E000, "Range"};
constexpr Column kWeightType = {4, 0x1D000, "Weight Type"};
constexpr Column kWeightData = {5, 0x1F000, "Weight Data"};
// Their labels are the names of the parameters and not localized.
constexpr Column kParameters[kParameterCount] = {{6, 0x20000, "a"}, {7, 0x20001, "b"}, {8, 0x20002, "c"}};

/// What a row shows of its variable.
struct Variable {
  int index;
  bool dependent;
  CString name;
  bool xyz;
  int weight_method = 0;
  std::int64_t parameter_block = 0;
};

using FindParameter = std::function<RYXmlWrapperBase(std::int64_t number)>;

CString numbered_tag(char letter, int number) {
  CString tag;
  tag.Format("%c%d", letter, number);
  return tag;
}

CString row_tag(int data, int variables, int position) {
  return numbered_tag('R', low_word(std::int64_t{data} * variables + position + 1));
}

/// The node ID of a row: the data set in the high 16 bits, the place of the row in the low ones.
int row_id(int data, int position) {
  constexpr std::int64_t kWord = 0x10000;
  return low_word((data | 0x2000) * kWord + ((position + std::int64_t{kFirstRowId}) & (kWord - 1)));
}

RYXmlWrapperBase labelled_cell(RYXmlWrapperBase& row, const Column& column, const char* label) {
  RYXmlWrapperBase cell;
  check_get_child(cell, row, numbered_tag('C', column.number), {.id = column.node_id});
  cell.SetPropertyValue(kLabelName, label);
  return cell;
}

RYXmlWrapperBase localized_cell(RYXmlWrapperBase& row, const Column& column) {
  return labelled_cell(row, column, report_localized_text(column.label));
}

void write_cell(RYXmlWrapperBase& row, const Column& column, const CString& value) {
  RYXmlWrapperBase cell = localized_cell(row, column);
  write_text(cell, value);
}

void write_kind(RYXmlWrapperBase& row, bool dependent) {
  RYXmlWrapperBase cell = localized_cell(row, kKind);
  write_text(cell, report_localized_text(dependent ? "Dep" : "Indep"));
}

CString data_string(int data, char kind, char letter, int number) {
  CString text;
  report_get_escaped_data_string(&text, one_more(data), /*dot=*/0, kind, letter, /*option=*/0, /*type=*/'\0',
                                 number);
  return text;
}

void write_data(RYXmlWrapperBase& row, int data, const Variable& variable) {
  char letter = variable.dependent ? 'Y' : 'X';
  int number = one_more(variable.index);
  if (variable.xyz) {
    letter = variable.dependent ? 'Z' : variable.index == 0 ? 'X' : 'Y';
    number = 1;
  }
  write_cell(row, kData, data_string(data, 'P', letter, number));
  write_cell(row, kRange, data_string(data, 'G', letter, number));
}

void write_weight(RYXmlWrapperBase& row, int data, const Variable& variable, const FindParameter& find) {
  CString method;
  int needs_data = 0;
  int needs[kParameterCount] = {};
  rytree_fitter_get_weight_mth_info(variable.weight_method, &method, &needs_data, &needs[0], &needs[1],
                                    &needs[2]);
  write_cell(row, kWeightType, method);
  if (needs_data != 0) {
    write_cell(row, kWeightData, data_string(data, 'P', 'W', one_more(variable.index)));
  }
  for (int i = 0; i < kParameterCount; ++i) {
    if (needs[i] == 0) continue;
    RYXmlWrapperBase cell = labelled_cell(row, kParameters[i], kParameters[i].label);
    RYXmlWrapperBase parameter = find(kParameterCount * variable.parameter_block + i);
    double value = 0;
    if (read_number(parameter, value) != 0) write_number(cell, value);
  }
}

void write_row(RYXmlWrapperBase& row, int data, const Variable& variable, const FindParameter& find) {
  CString label;
  report_get_set_data_string(&label, data);
  row.SetPropertyValue(kLabelName, label);
  row.SetPropertyValue(kNameAttribute, variable.name);
  write_kind(row, variable.dependent);
  write_data(row, data, variable);
  if (variable.dependent) write_weight(row, data, variable, find);
}

/// Writes the rows of a data set. It knows the children of the table by their tags, so that each row is found
/// at once.
class TableWriter {
 public:
  TableWriter(RYXmlWrapperBase& table, int data, int variables, const FindParameter& find)
      : table_(table), data_(data), variables_(variables), find_(find), rows_(table) {}

  void write(std::int64_t position, const Variable& variable) {
    const int place = low_word(position);
    const CString tag = row_tag(data_, variables_, place);
    RYXmlWrapperBase& row = rows_[tag.View()];
    if (row.IsNodeValid() == 0) table_.AddNode(row, tag, row_id(data_, place));
    write_row(row, data_, variable, find_);
  }

 private:
  RYXmlWrapperBase& table_;
  int data_;
  int variables_;
  const FindParameter& find_;
  FirstByTag rows_;
};

/// The first nodes below `tree` (which may be null) in the order of their numbers.
std::vector<RYXmlWrapperBase> first_nodes(const RYXmlWrapperBase* tree, std::size_t limit) {
  std::vector<RYXmlWrapperBase> nodes;
  if (tree == nullptr) return nodes;
  for (NodesBelow at(*tree); at && nodes.size() < limit; ++at) nodes.push_back(*at);
  return nodes;
}

int row_count(int variables, const CStringArray& names) {
  return std::min(variables, std::max(names.GetSize(), kRowIds));
}

/// The first pass after the end of the weight methods does what all later ones would do.
int pass_count(int sets, int dependents, int methods) {
  return dependents > 0
             ? static_cast<int>(std::min<std::int64_t>(sets, std::int64_t{methods} / dependents + 2))
             : 0;
}

}  // namespace

extern "C" RYXmlWrapperBase flagged_report_make_input_data_table_var_row(
    RYXmlWrapperBase* table, int data, int position, int index, Flag dependent, const char* name,
    int /*sets*/, int pass, int variables, int /*reserved*/, int weightMethod, RYXmlWrapperBase* parameters,
    int xyz, int parameterIndex) {
  RYXmlWrapperBase row;
  const CString tag = row_tag(data, variables, position);
  if (table == nullptr || !check_get_child(row, *table, tag, {.id = row_id(data, position)})) return row;
  const auto find = [parameters](std::int64_t number) {
    RYXmlWrapperBase node;
    if (number >= 0 && number <= INT_MAX) {
      rytree_get_node_ex(parameters, &node, static_cast<int>(number), /*flags=*/0, /*attribute=*/nullptr);
    }
    return node;
  };
  write_row(row, data,
            {.index = index,
             .dependent = is_set(dependent),
             .name = name,
             .xyz = xyz != 0,
             .weight_method = weightMethod,
             .parameter_block = parameterIndex < 0 ? pass : parameterIndex},
            find);
  return row;
}
[[gnu::alias("flagged_report_make_input_data_table_var_row")]] decltype(report_make_input_data_table_var_row)
    report_make_input_data_table_var_row;

void report_update_input_data_table(RYXmlWrapperBase* table, int data, int sets, int dependents,
                                    int independents, HostArrayObject* dependentNames,
                                    HostArrayObject* independentNames, int /*reserved*/,
                                    HostArrayObject* weightMethods, RYXmlWrapperBase* parameters, int xyz) {
  const CStringArray no_names;
  const CArray<int, int> no_methods;
  const CStringArray* const y_array = open_strings(dependentNames);
  const CStringArray* const x_array = open_strings(independentNames);
  const CArray<int, int>* const method_array = open_ints(weightMethods);
  if (table == nullptr || sets < 1) return;
  const CStringArray& y_names = y_array != nullptr ? *y_array : no_names;
  const CStringArray& x_names = x_array != nullptr ? *x_array : no_names;
  const CArray<int, int>& methods = method_array != nullptr ? *method_array : no_methods;

  const auto nodes = first_nodes(parameters, kParameterCount * static_cast<std::size_t>(methods.GetSize()));
  const FindParameter find = [&nodes](std::int64_t number) {
    const auto place = static_cast<std::size_t>(number);
    return place < nodes.size() ? nodes[place] : RYXmlWrapperBase();
  };
  TableWriter rows(*table, data, low_word(std::int64_t{dependents} + independents), find);
  for (int i = 0; i < row_count(independents, x_names); ++i) {
    rows.write(i, {.index = i, .dependent = false, .name = x_names[i], .xyz = xyz != 0});
  }
  for (int pass = 0; pass < pass_count(sets, dependents, methods.GetSize()); ++pass) {
    for (int j = 0; j < row_count(dependents, y_names); ++j) {
      const std::int64_t k = std::int64_t{pass} * dependents + j;
      const int method = k < methods.GetSize() ? methods[static_cast<int>(k)] : 0;
      rows.write(std::int64_t{independents} + j, {j, true, y_names[j], xyz != 0, method, k});
    }
  }
}
