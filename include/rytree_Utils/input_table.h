// The input-data table of a report with its escaped data strings, and tests on variable nodes and options.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// An escaped data string stands for a value by kind and number:
//
//     ?$OP:<kind><option>=<type or dot><number><suffix><suffix number>        ?$OP:F=1Y   ?$OP:P (3)=.4W1
//
// The table is a node with a row for each variable, and a row has a cell for each column:
//
//     <R1 Label="?$OP:F=1Y" SubHeader0="signal">      data set 1; node ID 0x2000076C, see below
//       <C1 Label="Dep/Indep">Dep</C1>                0x1C000
//       <C2 Label="Data">?$OP:P=1Y1</C2>              0x1B000
//       <C3 Label="Range">?$OP:G=1Y1</C3>             0x1E000
//       <C4 Label="Weight Type">Instrumental</C4>     0x1D000   dependent variables only, as are those below
//       <C5 Label="Weight Data">?$OP:P=1W1</C5>       0x1F000   where the weight method needs data
//       <C6 Label="a">0.5</C6> <C7/> <C8/>            0x20000 to 0x20002, where it needs a, b, c
//
// The number of a row is data * variables + position + 1, and its node ID ((data | 0x2000) << 16) |
// ((position + 1900) & 0xFFFF), both cut to 32 bits. Node IDs are given to new nodes only. Labels, "Dep" and
// "Indep" are localized, unless VCTreeAccessBlockLocalization blocks that: by "LocalizeString" of the host's
// module "ZANmsg.dll", which is loaded at the first label and let go of with this library. A module that
// cannot be loaded is not tried again; the texts then stay as they are. This state belongs to one thread at a
// time.

extern "C" {

/// Replaces `out` by an escaped data string; a null `out` does nothing. A character is written as it is,
/// whatever it is.
/// - `kind`: 0 stands for 'A'. `number`: decimal, signed.
/// - `option`: where it is positive its low 16 bits count: 1 adds " G" to the kind, 2 adds its high 16 bits
/// as " (3)".
/// - `type`: the character before the number; where it is 0, `dot` nonzero puts a "." there.
/// - `suffix`: 0 for none; only behind one stands `suffixNumber`, if that is above 0.
RYTREE_API void report_get_escaped_data_string(CString* out, int number, int dot, char kind, char suffix,
                                               int option, char type, int suffixNumber);

/// Replaces `out` (null: does nothing) by the label of a data set, "?$OP:F=1Y" for index 0. Always 1.
RYTREE_API int report_get_set_data_string(CString* out, int index);

/// Puts `type` in the place of the sixth character, which is the kind if `text` is an escaped data string. 1,
/// or 0 with nothing changed if "?$OP:" is nowhere in `text` or nothing else is, or if `text` is null. The
/// place of "?$OP:" does not matter: in "ab?$OP:P" too it is the sixth character of the whole text that goes.
RYTREE_API int report_set_escaped_data_string_type(CString* text, char type);

// This one gives an object of C++ by its plain name.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif

/// Makes the row of a variable, or writes it anew: row and cells are found by their tags, and cells that a
/// former weight method needed stay.
/// - `data`: index of the data set. `position`: place among all `variables` of a set, independents first.
/// `index`: place
///   among those of its own kind.
/// - `name`: for "SubHeader0"; null counts as empty.
/// - `weightMethod`: for a dependent variable; one that is none empties the name and needs nothing.
/// - `parameters`: its node 3 * `parameterIndex` + 0, 1, 2 (numbered in pre-order as by rytree_get_node)
/// holds a, b, c.
///   Null, or no such node or number there: the cell's value stays as it is. A negative `parameterIndex`
///   counts as `pass`.
/// - `xyz`: nonzero names the data X1 and Y1 for independents (index 0, others) and Z1 for dependents,
/// instead of X or Y
///   and the index + 1.
/// - `sets`, `reserved`: no effect.
///
/// The row, invalid if `table` is null or invalid or the row cannot be made.
RYTREE_API RYXmlWrapperBase report_make_input_data_table_var_row(
    RYXmlWrapperBase* table, int data, int position, int index, bool dependent, const char* name, int sets,
    int pass, int variables, int reserved, int weightMethod, RYXmlWrapperBase* parameters, int xyz,
    int parameterIndex);

#ifdef __clang__
#pragma clang diagnostic pop
#endif

/// Makes or writes anew the rows of all variables of one data set, as the function above does, in `sets`
/// passes over the same rows: passes differ in weight method and parameters only, so that a row ends with
/// those of the last pass, and with the cells that any pass needed.
/// - `sets` below 1, or a null `table`: nothing happens. A count below 1 has no variables of that kind.
/// - `dependentNames`, `independentNames`: arrays of strings. A name that is missing is empty. No row is made
/// for a
///   variable that is both without a name and beyond the 65,536th of its kind, where the node IDs begin
///   again.
/// - `weightMethods`: ints, method and block of three parameters at pass * `dependents` + index; 0 where the
/// array is
///   shorter or missing.
/// - `parameters`: as above. A tree that holds `table` itself is numbered as it was before the call.
/// - `reserved`: no effect.
///
/// Time is linear in the table, the names and the weight methods, whatever `sets`.
RYTREE_API void report_update_input_data_table(RYXmlWrapperBase* table, int data, int sets, int dependents,
                                               int independents, HostArrayObject* dependentNames,
                                               HostArrayObject* independentNames, int reserved,
                                               HostArrayObject* weightMethods, RYXmlWrapperBase* parameters,
                                               int xyz);
}

/// Whether a variable node is an input, or an output. Its child "io" tells: 0 (or what is no number) is an
/// input, 1 an output, any other number both, or with `strict` neither. False without that child. Makes
/// nothing.
RYTREE_API bool XVarNode_IsInput(RYXmlWrapperBase& node, bool strict);
RYTREE_API bool XVarNode_IsOutput(RYXmlWrapperBase& node, bool strict);

/// 1 if one of the bits of `mask`, of which the low 32 count, is set in the options in force: the int
/// attribute "InteractiveOptions" of `node` or else of the nearest node above that has it, also if it is 0
/// there. 0 otherwise, also if no node has it.
RYTREE_API int vctree_test_ICOPT_recursively(RYXmlWrapperBase& node, unsigned long mask);
