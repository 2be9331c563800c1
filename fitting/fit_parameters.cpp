// The parameter branch of a fit: vectors on a fixed grid of DataIDs, and reading a block of one into an
// array.
#include <rytree_Utils/weighting.h>
#include <rytree_Utils/lookup.h>

#include <climits>

#include "fitting/values_by_data_id.h"
#include "frame/host_arrays.h"

namespace {

struct Place {
  const char* tag;
  int data_id;
};

constexpr int kTreeDataId = 2900;
constexpr Place kSettings[] = {{"AutoParamsInit", 2906}, {"LinearConstraints", 2907}};

// In the order in which they are made.
constexpr Place kVectors[] = {
    {"Share", 5000},
    {"Fixed", 6000},
    {"FixedValues", 15000},
    {"LowerBounds", 7000},
    {"LowerBoundsExclusive", 8000},
    {"LowerBoundsEnable", 9000},
    {"UpperBounds", 10000},
    {"UpperBoundsExclusive", 11000},
    {"UpperBoundsEnable", 12000},
    {"Values", 13000},
    {"SignificantDigit", 14000},
};

bool is_parameter_vector(const RYXmlWrapperBase& vector) {
  CString tag;
  vector.GetTagName(tag);
  for (const Place& row : kVectors) {
    if (_mbscmp(tag, row.tag) == 0) return true;
  }
  return false;
}

void size_vector(RYXmlWrapperBase& vector, int base, int count) {
  if (vector.GetNodeCount() > count) {
    vector.SetSizeTrimFromEnd(count);
    return;
  }
  ValuesByDataId values(vector);
  RYXmlWrapperBase value;
  for (int number = 1; number <= count; ++number) {
    if (!values.check_get(value, base, number) || number == INT_MAX) return;
  }
}

bool convert(RYXmlWrapperBase& node, bool& element) {
  int value = 0;
  if (node.NodeValue(value, 1) == 0 || (value != 0 && value != 1)) return false;
  element = value != 0;
  return true;
}

bool convert(RYXmlWrapperBase& node, int& element) {
  int value = 0;
  if (node.NodeValue(value, 1) == 0) return false;
  element = value;
  return true;
}

bool convert(RYXmlWrapperBase& node, double& element) {
  double value = kMissingValue;
  if (node.NodeValue(value, 1) == 0) return false;
  if (value < kMissingValue || value > kMissingValue) element = value;
  return true;
}

template <class Array>
bool read_block(const RYXmlWrapperBase* vector, Array* values, int block) {
  if (values == nullptr || vector == nullptr || vector->IsNodeValid() == 0 || !is_parameter_vector(*vector)) {
    return false;
  }
  const int size = values->GetSize();
  RYXmlWrapperBase child;
  for (int i = 0; i < size; ++i) {
    const long long index = i + static_cast<long long>(size) * block;
    if (index < 0 || index > INT_MAX || vector->GetChild(child, static_cast<int>(index)) == 0) return false;
    if (!convert(child, (*values)[i])) return false;
  }
  return true;
}

}  // namespace

void rytree_nlsf_add_params_node_DataID(RYXmlWrapperBase* tree, int count) {
  if (tree == nullptr) return;
  if (tree->IsNodeValid() == 0) tree->CreateNew(0, nullptr);
  tree->SetDataID(kTreeDataId);
  for (const Place& setting : kSettings) {
    RYXmlWrapperBase node;
    CString number;
    number.Format("%d", setting.data_id);
    rytree_tree_check_get_node(&node, tree, setting.tag, -1, "DataID", number, 1);
  }
  for (const Place& row : kVectors) {
    RYXmlWrapperBase vector;
    rytree_check_get_node_by_dataid(tree, &vector, row.tag, row.data_id, nullptr, nullptr);
    if (vector.IsNodeValid() != 0) size_vector(vector, row.data_id, count);
  }
}

bool rytree_nlf_set_bool_param_from_user_params_setting(RYXmlWrapperBase* vector, HostArrayObject* values,
                                                        int block) {
  return read_block(vector, open_bools(values), block);
}

bool rytree_nlf_set_double_param_from_user_params_setting(RYXmlWrapperBase* vector, HostArrayObject* values,
                                                          int block) {
  return read_block(vector, open_doubles(values), block);
}

bool rytree_nlf_set_int_param_from_user_params_setting(RYXmlWrapperBase* vector, HostArrayObject* values,
                                                       int block) {
  return read_block(vector, open_ints(values), block);
}
