// Escaped data strings of reports.
#pragma once

#include <rytree_host/framework.h>

// An escaped data string stands for a value by kind and number:
//
//     ?$OP:<kind><option>=<type or dot><number><suffix><suffix number>        ?$OP:F=1Y   ?$OP:P (3)=.4W1

extern "C" {

/// Replaces `out` by an escaped data string; a null `out` does nothing. Characters are written unchecked.
/// - `kind`: 0 stands for 'A'. `number`: decimal, signed.
/// - `option`: only if it is positive; its low 16 bits tell: 1 adds " G" to the kind, 2 adds the high 16
///   bits, as in " (3)" for 0x30002; any other adds nothing.
/// - `type`: the character before the number; if it is 0, a nonzero `dot` puts a "." there.
/// - `suffix`: 0 for none. `suffixNumber`: written after a suffix if it is above 0.
RYTREE_API void report_get_escaped_data_string(CString* out, int number, int dot, char kind, char suffix,
                                               int option, char type, int suffixNumber);

/// Replaces `out` (null: does nothing) by the label of a data set, "?$OP:F=1Y" for index 0: the number is
/// `index` + 1. Always 1.
RYTREE_API int report_get_set_data_string(CString* out, int index);

/// Replaces the sixth byte by `type`; in an escaped data string that is the kind. Give it a text that begins
/// with "?$OP:": it is the sixth byte of the whole text even if "?$OP:" is further on, so that "ab?$OP:P"
/// becomes "ab?$OG:P" for 'G'. 1, or 0 with nothing changed if `text` is null, does not contain "?$OP:" or
/// has no sixth byte.
RYTREE_API int report_set_escaped_data_string_type(CString* text, char type);

}  // extern "C"
