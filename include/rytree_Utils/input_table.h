// The input-data table of a report.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// The table is a node with a row for each variable, and a row has a cell for each column (escaped_string.h
// tells what the strings with "?$OP:" are):
//
//     <R1 Label="?$OP:F=1Y" SubHeader0="signal">      data set 1; node ID 0x2000076C, see below
//       <C1 Label="Dep/Indep">Dep</C1>                0x1C000
//       <C2 Label="Data">?$OP:P=1Y1</C2>              0x1B000
//       <C3 Label="Range">?$OP:G=1Y1</C3>             0x1E000
//       <C4 Label="Weight Type">Instrumental</C4>     0x1D000   dependent variables only, as are those below
//       <C5 Label="Weight Data">?$OP:P=1W1</C5>       0x1F000   if the weight method needs data
//       <C6 Label="a">0.5</C6> <C7/> <C8/>            0x20000 to 0x20002, if it needs a, b, c
//
// The number of a row is data * variables + position + 1, and its node ID ((data | 0x2000) << 16) |
// ((position + 1900) & 0xFFFF), both cut to 32 bits. Node IDs are given to new nodes only.
//
// Labels, "Dep" and "Indep" are localized unless VCTreeAccessBlockLocalization blocks that; "a", "b", "c" and
// the names of weight methods are not. The texts come from "LocalizeString" of the host's module
// "ZANmsg.dll", which is loaded at the first label and unloaded with this library. If it cannot be loaded the
// texts stay as they are, and it is not tried again. The bundled module asks gettext for the domain "rytree":
// a program that wants texts in the user's language calls setlocale(LC_ALL, "") first and, unless the
// catalogues rytree.mo are where the system keeps them, bindtextdomain("rytree", folder). On Windows it reads
// ../share/locale/LANGUAGE/LC_MESSAGES/rytree.mo, from its own folder on, in UTF-8, for the languages that
// LANGUAGE, LC_ALL, LC_MESSAGES or LANG tell as they do to gettext, or else for the language of the user's
// desktop; the program calls nothing. A text that no catalogue has stays as it is.

extern "C" {

RYTREE_CLASS_RESULTS

/// Order: `table`, `parameters`. Makes the row of a variable, or writes it again: row and cells are found by
/// their tags, and cells that only an earlier weight method needed stay.
/// - `data`: index of the data set.
/// - `position`: place among all `variables` of a set, independents first.
/// - `index`: place among the variables of its own kind.
/// - `name`: for "SubHeader0"; null counts as empty.
/// - `weightMethod`: of a dependent variable, see weighting.h; one outside 0 to 14 has an empty name and
///   needs nothing.
/// - `parameters`: its nodes 3 * `parameterIndex` + 0, 1 and 2 (all nodes below it numbered from 0 in
///   pre-order, branches too) hold a, b and c. If it is null, or there is no such node or no number in it,
///   the cell keeps its value, a new one none. Each is counted up to from the start; for many variables of
///   one tree report_update_input_data_table is quicker.
/// - `parameterIndex`: if it is negative, `pass` is taken instead.
/// - `xyz`: if nonzero, the data are named X1 for the independent of index 0, Y1 for the other independents
///   and Z1 for dependents, else X or Y and the index + 1.
/// - `sets`, `reserved`: no effect.
///
/// The row; invalid if `table` is null or invalid or the row cannot be made. A cell that cannot be made is
/// left out.
RYTREE_API RYXmlWrapperBase report_make_input_data_table_var_row(
    RYXmlWrapperBase* table, int data, int position, int index, bool dependent, const char* name, int sets,
    int pass, int variables, int reserved, int weightMethod, RYXmlWrapperBase* parameters, int xyz,
    int parameterIndex);

RYTREE_CLASS_RESULTS_END

/// Order: `table`, `parameters`. Makes the rows of all variables of one data set, or writes them again, each
/// as report_make_input_data_table_var_row does. There are `sets` passes over the same rows, which differ in
/// the weight methods and parameters: a row ends with those of the last pass, and with the cells that any
/// pass needed. For several data sets call it once for each `data`, not with larger `sets`.
/// - `sets` below 1, or a null or invalid `table`: nothing happens.
/// - `dependents`, `independents`: numbers of variables; below 1 there are none of that kind.
/// - `dependentNames`, `independentNames`: arrays of strings; a missing name is empty. Variables after the
///   65,536th of their kind, where the node IDs begin again, get a row only if the array has a name for them.
/// - `weightMethods`: ints. The one at pass * `dependents` + index is the method of a variable (0 if the
///   array is shorter or missing), and that place is its `parameterIndex`.
/// - `parameters`, `xyz`: as above. A tree that contains `table` itself is numbered as it was before the
///   call.
/// - `reserved`: no effect.
///
/// Time is linear in the table, the names and the weight methods, whatever `sets`.
RYTREE_API void report_update_input_data_table(RYXmlWrapperBase* table, int data, int sets, int dependents,
                                               int independents, HostArrayObject* dependentNames,
                                               HostArrayObject* independentNames, int reserved,
                                               HostArrayObject* weightMethods, RYXmlWrapperBase* parameters,
                                               int xyz);

}  // extern "C"
