// The weighting of a fit: the methods with their names and needs, the two forms, and the way between them.
#include <rytree_Utils/weighting.h>
#include <rytree_host/ryUtils.h>

#include <iterator>

#include "frame/attributes.h"
#include "frame/check_get.h"
#include "frame/node_text.h"

namespace {

struct WeightMethod {
  const char* name;
  int data, a, b, c;  // 1 if needed
};

constexpr WeightMethod kMethods[] = {
    {"No Weighting", 0, 0, 0, 0},
    {"Instrumental", 1, 0, 0, 0},
    {"Statistical", 0, 0, 0, 0},
    {"Arbitrary Dataset", 1, 0, 0, 0},
    {"Direct Weighting", 1, 0, 0, 0},
    {"Variance ~ y^2", 0, 0, 0, 0},
    {"Variance = a*y^b", 0, 1, 1, 0},
    {"Variance = c^b+a*y^b", 0, 1, 1, 1},
    {"Variance = a*y^b*c^(tlast-t)", 1, 1, 1, 1},
    {"Variance ~ yfit", 0, 0, 0, 0},
    {"Variance ~ yfit^2", 0, 0, 0, 0},
    {"Variance = a*yfit^b", 0, 1, 1, 0},
    {"Variance = c^b+a*yfit^b", 0, 1, 1, 1},
    {"Variance = a*yfit^b*c^(tlast-t)", 1, 1, 1, 1},
    {"Variance = [max(z,a)]^b", 0, 1, 1, 0},
};
constexpr int kMethodCount = static_cast<int>(std::size(kMethods));

const WeightMethod* find_method(int method) {
  return method >= 0 && method < kMethodCount ? &kMethods[method] : nullptr;
}

// The tag of the child, and the name of the compact form's attribute.
constexpr const char* kMethodTag = "WeightMethod";
constexpr const char* kDisable = "DisableWeightMethod";
constexpr const char* kCombo = "Combo";
constexpr int kMethodNodeId = 11;
constexpr int kExpandedMessage = 1631;
constexpr int kDataAction = 1010;

// The children of the expanded form that are shown as the method needs them.
struct Setting {
  const char* tag;
  int node_id;
  int message;            // of its label
  const char* attribute;  // of a parameter in the compact form, whose text is the data
};
constexpr int kSettingCount = 4;  // the first for the data, then a, b and c
constexpr Setting kSettings[kSettingCount] = {
    {"WeightData", 13, 1627, nullptr},
    {"WeightA", 14, 1628, "Weight_A"},
    {"WeightB", 14, 1629, "Weight_B"},
    {"WeightC", 14, 1630, "Weight_C"},
};

CString message(int number) {
  CString text;
  ryu_load_err_msg_str(number, &text, -1);
  return text;
}

void move_combo(RYXmlWrapperBase& parent, CString& combo) {
  parent.GetPropertyValue(kCombo, combo);
  parent.RemoveProperty(kCombo);
}

bool is_shown(const RYXmlWrapperBase& node) {
  int show = 0;
  return node.GetShow(show) == 0 || show != 0;
}

void mark_as_data(RYXmlWrapperBase& node, const CString& combo) {
  node.SetPropertyValue(kCombo, combo);
  node.SetPropertyValue(kActionIdName, kDataAction);
}

void write_value(RYXmlWrapperBase& node, const CString* data, double* parameter) {
  if (data != nullptr) write_text(node, *data);
  if (parameter != nullptr) write_number(node, *parameter);
}

/// What the settings become; null keeps what is stored.
struct NewValues {
  const CString* data;
  double* parameters[kSettingCount - 1];
};

/// vctree_update_fitter_data_weight_node.
int update_expanded(RYXmlWrapperBase& parent, int method, unsigned long& change, const NewValues& values,
                    bool check_same, int disable) {
  RYXmlWrapperBase method_node;
  if (!check_get_child(method_node, parent, kMethodTag, {.id = kMethodNodeId})) return 0;
  parent.SetPropertyValue(kDisable, disable);
  int stored = 0;
  if (check_same && read_number(method_node, stored) != 0 && stored == method) return 0;
  method_node.SetShow(0);
  int needs[kSettingCount] = {};
  if (rytree_fitter_get_weight_mth_info(method, nullptr, &needs[0], &needs[1], &needs[2], &needs[3]) == 0) {
    return 0;
  }
  write_number(method_node, method);

  CString combo;
  move_combo(parent, combo);
  int before = 0;
  int after = 0;
  for (int i = 0; i < kSettingCount; ++i) {
    const Setting& setting = kSettings[i];
    RYXmlWrapperBase child;
    const CString label = message(setting.message);
    if (!check_get_child(child, parent, setting.tag, {setting.node_id, kLabelName, label})) continue;
    if (i == 0) mark_as_data(child, combo);
    before += is_shown(child) ? 1 : 0;
    after += needs[i];
    child.SetShow(needs[i]);
    write_value(child, i == 0 ? values.data : nullptr, i > 0 ? values.parameters[i - 1] : nullptr);
  }
  change = after < before ? 1 : after > before ? 2 : 0;
  return 1;
}

}  // namespace

int rytree_fitter_get_weight_mth_info(int method, CString* name, int* needData, int* needA, int* needB,
                                      int* needC) {
  const WeightMethod* const found = find_method(method);
  const WeightMethod info = found != nullptr ? *found : WeightMethod{};
  if (needData != nullptr) *needData = info.data;
  if (needA != nullptr) *needA = info.a;
  if (needB != nullptr) *needB = info.b;
  if (needC != nullptr) *needC = info.c;
  if (name != nullptr) VCTreeGetFitterWeightStrings(method, name, nullptr);
  return found != nullptr ? 1 : 0;
}

int VCTreeGetFitterWeightStrings(int method, CString* name, CStringArray* names) {
  if (name != nullptr) {
    const WeightMethod* const found = find_method(method);
    if (found == nullptr) {
      name->Empty();
      if (names != nullptr) names->SetSize(0);
      return -1;
    }
    *name = found->name;
  }
  if (names != nullptr) {
    names->SetSize(kMethodCount);
    for (int i = 0; i < kMethodCount; ++i) names->SetAt(i, kMethods[i].name);
  }
  return kMethodCount;
}

int vctree_update_fitter_data_weight_node(RYXmlWrapperBase& parent, int method, unsigned long& change,
                                          const char* data, double* a, double* b, double* c, int checkSame,
                                          int disable) {
  const CString text(data);
  return update_expanded(parent, method, change, {data != nullptr ? &text : nullptr, {a, b, c}},
                         checkSame != 0, disable);
}

int vctree_fitter_data_weight_node_compact_to_expanded(RYXmlWrapperBase& expanded,
                                                       RYXmlWrapperBase& compact) {
  if (expanded.IsNodeValid() == 0 || compact.IsNodeValid() == 0) return 0;
  expanded.SetPropertyValue(kLabelName, message(kExpandedMessage));
  CString data;
  read_text(compact, data);
  int method = 0;
  compact.GetPropertyValue(kMethodTag, method);
  double parameters[kSettingCount] = {};
  for (int i = 1; i < kSettingCount; ++i) compact.GetPropertyValue(kSettings[i].attribute, parameters[i]);
  CString combo;
  if (compact.GetPropertyValue(kCombo, combo) != 0) expanded.SetPropertyValue(kCombo, combo);
  int disable = 0;
  compact.GetPropertyValue(kDisable, disable);
  unsigned long change = 0;
  update_expanded(expanded, method, change, {&data, {&parameters[1], &parameters[2], &parameters[3]}},
                  /*check_same=*/false, disable);
  return 1;
}

int vctree_fitter_data_weight_node_expanded_to_compact(RYXmlWrapperBase& compact,
                                                       RYXmlWrapperBase& expanded) {
  RYXmlWrapperBase method_node;
  if (!check_get_child(method_node, expanded, kMethodTag)) return 0;
  RYXmlWrapperBase settings[kSettingCount];
  for (int i = 0; i < kSettingCount; ++i) {
    if (!check_get_child(settings[i], expanded, kSettings[i].tag)) return 0;
  }
  int method = 0;
  if (read_number(method_node, method) != 0) compact.SetPropertyValue(kMethodTag, method);
  CString data;
  if (settings[0].NodeValue(data, 1, 1, nullptr) != 0) write_text(compact, data);
  for (int i = 1; i < kSettingCount; ++i) {
    double parameter = 0;
    if (read_number(settings[i], parameter) != 0) compact.SetPropertyValue(kSettings[i].attribute, parameter);
  }
  return 1;
}

int vctree_extract_weight_info(RYXmlWrapperBase& node, const char* tag, int* method, double* a, double* b,
                               double* c) {
  CString name(tag);
  if (name.IsEmpty()) node.GetTagName(name);
  if (_mbscmp(name, "W") != 0) return 0;
  if (method != nullptr) {
    *method = 0;
    node.GetPropertyValue(kMethodTag, *method);
  }
  double* const parameters[kSettingCount] = {nullptr, a, b, c};
  for (int i = 1; i < kSettingCount; ++i) {
    if (parameters[i] == nullptr) continue;
    *parameters[i] = 0;
    node.GetPropertyValue(kSettings[i].attribute, *parameters[i]);
  }
  return 1;
}
