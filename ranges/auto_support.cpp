// The automatic mode of a node, and whether a composite range takes the entire worksheet.
#include <rytree_Utils/auto_support.h>
#include <rytree_host/ryUtils.h>

#include "frame/attributes.h"
#include "frame/decimal.h"

namespace {

constexpr const char* kEntireWorksheet = "_EntireWorksheet";
constexpr int kAutoMessage = 1624;
constexpr int kKeepNumber = -1;

}  // namespace

int vctree_create_auto_support_string(CString& out, int state, const char* label, int number) {
  CString message;
  if (label == nullptr) {
    ryu_load_err_msg_str(kAutoMessage, &message, -1);
    label = message.GetString();
  }
  out.Format("%d|%s|%d", state, label, number);
  return 1;
}

int vctree_parse_auto_support_string(const char* text, int& state, CString& label, int& number) {
  CStringArray fields;
  int status = 0;
  ryutilsGetTokens(text, &fields, '|', &status, '"', 0);
  const int count = fields.GetSize();
  if (status != 0 || count == 0) return 0;
  state = leading_int(fields[0]);
  label = count >= 2 ? fields[1] : CString("Auto");
  number = count >= 3 ? leading_int(fields[2]) : 1;
  return 1;
}

int vctree_set_auto_support(RYXmlWrapperBase& node, int state, const char* label, int number) {
  if (node.IsNodeValid() == 0) return 0;
  if (state == 0) node.RemoveProperty(kAutoName);
  if (state != 1 && state != -1) return 0;

  CString kept_label;
  int kept_number = 1;
  vctree_get_auto_support(node, kept_label, kept_number);
  CString value;
  vctree_create_auto_support_string(value, state == 1 ? 1 : 0,
                                    label != nullptr ? label : kept_label.GetString(),
                                    number != kKeepNumber ? number : kept_number);
  node.SetPropertyValue(kAutoName, value);
  return 1;
}

int vctree_get_auto_support(RYXmlWrapperBase& node, CString& label, int& number) {
  CString value;
  int state = 0;
  if (node.GetPropertyValue(kAutoName, value) == 0) return 0;
  if (vctree_parse_auto_support_string(value, state, label, number) == 0) return 0;
  return state == 0 ? -1 : state;
}

void vctree_check_reset_auto_support(RYXmlWrapperBase& node) {
  CString label;
  int number = 1;
  if (vctree_get_auto_support(node, label, number) != 0) vctree_set_auto_support(node, -1, label, number);
}

void vctree_composite_range_set_entire_worksheet_support(RYXmlWrapperBase& node, int state) {
  if (state == 1 || state == -1) {
    node.SetPropertyValue(kEntireWorksheet, state == 1 ? 1 : 0);
  } else if (state == 0) {
    node.RemoveProperty(kEntireWorksheet);
  }
}

int vctree_composite_range_get_entire_worksheet_support(RYXmlWrapperBase& node) {
  int value = 0;
  if (node.GetPropertyValue(kEntireWorksheet, value) == 0) return 0;
  return value == 1 ? 1 : -1;
}

int rytree_set_auto_support(RYXmlWrapperBase* node, int state) {
  return node != nullptr ? vctree_set_auto_support(*node, state, nullptr, kKeepNumber) : 0;
}

int rytree_get_auto_support(RYXmlWrapperBase* node) {
  CString label;
  int number = 1;
  return node != nullptr ? vctree_get_auto_support(*node, label, number) : 0;
}

void rytree_composite_range_set_entire_worksheet_support(RYXmlWrapperBase* node, int state) {
  if (node != nullptr) vctree_composite_range_set_entire_worksheet_support(*node, state);
}

int rytree_composite_range_get_entire_worksheet_support(RYXmlWrapperBase* node) {
  return node != nullptr ? vctree_composite_range_get_entire_worksheet_support(*node) : 0;
}
