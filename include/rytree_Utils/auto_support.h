// The automatic mode of a node, and whether a composite range takes the entire worksheet.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

// Both settings have three states, the same when read and when set: 1 on, -1 off but kept, 0 not set.
//
// The automatic mode is one string in the attribute "Auto", "%d|%s|%d": 1 for on or 0 for off, a label, and a
// number that is kept for the caller. The label and the number may be missing and are then "Auto" and 1.
//
// Labels are written as they are, and not all of them come back:
// - with an odd number of double quotes (5" disk) the whole string cannot be read, and the mode counts as not
//   set from then on: vctree_check_reset_auto_support does not turn it off, and the next
//   vctree_set_auto_support that gives no label writes an empty one;
// - with "|" the label ends there, and what follows counts as the number. A "|" between two double quotes is
//   a part of the label, as the quotes are.

/// Makes such a string of the number for on or off, the label (null: the host's text 1624) and the number.
/// Always 1.
RYTREE_API int vctree_create_auto_support_string(CString& out, int state, const char* label, int number);

/// Takes such a string apart; fields beyond the third are ignored. Of the first and the third the number that
/// they begin with counts, 0 if they begin with none; one out of range is the nearest int. 1, or 0 with all
/// outputs untouched if the text is null, empty or has a double quote without its partner.
[[nodiscard]] RYTREE_API int vctree_parse_auto_support_string(const char* text, int& state, CString& label,
                                                              int& number);

/// Sets the automatic mode.
/// - `state` 1 or -1: writes the string. A null `label` keeps the present label, or an empty one if there is
///   no string that can be read; a `number` of -1 keeps the present number, or 1. The result is 1.
/// - `state` 0: removes the attribute. The result is 0, as for a failure.
/// - Any other state and an invalid node: nothing changes, 0.
RYTREE_API int vctree_set_auto_support(RYXmlWrapperBase& node, int state, const char* label, int number);

/// Reads the automatic mode: 1, -1, any other number that the string has in place of 1 or 0, or 0 if the
/// node is invalid or has no string that can be read. `label` and `number` are set unless the result is 0.
RYTREE_API int vctree_get_auto_support(RYXmlWrapperBase& node, CString& label, int& number);

/// Turns the automatic mode off if vctree_get_auto_support finds it set, keeping label and number; the string
/// is then written out in full. Nothing happens otherwise.
RYTREE_API void vctree_check_reset_auto_support(RYXmlWrapperBase& node);

/// Sets whether the range takes the entire worksheet: the int attribute "_EntireWorksheet" becomes 1 for
/// `state` 1 and 0 for -1, is removed for 0, and stays for any other. Nothing happens for an invalid node.
RYTREE_API void vctree_composite_range_set_entire_worksheet_support(RYXmlWrapperBase& node, int state);

/// Reads that setting: 1 if the attribute holds 1, -1 for any other int, 0 if there is none that is an int.
RYTREE_API int vctree_composite_range_get_entire_worksheet_support(RYXmlWrapperBase& node);

extern "C" {

/// vctree_set_auto_support with the label and the number of the present string: without one the label is
/// empty, not the host's text. 0 for a null node.
RYTREE_API int rytree_set_auto_support(RYXmlWrapperBase* node, int state);

/// vctree_get_auto_support for the state alone. 0 for a null node.
RYTREE_API int rytree_get_auto_support(RYXmlWrapperBase* node);

/// The vctree_ functions of the same names. A null node: nothing happens, 0.
RYTREE_API void rytree_composite_range_set_entire_worksheet_support(RYXmlWrapperBase* node, int state);
RYTREE_API int rytree_composite_range_get_entire_worksheet_support(RYXmlWrapperBase* node);

}  // extern "C"
