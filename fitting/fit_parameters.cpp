// The parameter branch of a fit: vector nodes on a fixed grid of DataIDs, and values between vector nodes and
// arrays.
#include <rytree_Utils/fit_parameters.h>
#include <rytree_Utils/lookup.h>

#include <algorithm>
#include <climits>
#include <cstdint>

#include "frame/attributes.h"
#include "frame/check_get.h"
#include "frame/children.h"
#include "frame/host_arrays.h"
#include "frame/id_index.h"
#include "frame/node_text.h"
#include "frame/words.h"

namespace {

struct Place {
  const char* tag;
  int data_id;
};

constexpr int kMostParameters = 100'000;
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

/// Finds the children of one vector node by DataID, as rytree_check_get_node_by_dataid does one by one. The
/// children are read once; nobody else may add or remove any meanwhile.
class ValuesByDataId {
 public:
  explicit ValuesByDataId(RYXmlWrapperBase& vector) : vector_(vector) {
    for (Children child(vector); child; ++child) {
      int id = 0;
      if (child->GetPropertyValue(data_id_, id) != 0) add(id, *child);
    }
  }

  /// Puts `out` on the first child with the vector's `base` + `number`, or on a new one with the tag "Value"
  /// and the number. False if it cannot be made.
  bool check_get(RYXmlWrapperBase& out, int base, int number) {
    const int id = low_word(std::int64_t{base} + number);
    if (const int place = places_.find(id); place >= 0) {
      out = children_[static_cast<std::size_t>(place)];
      return true;
    }
    tag_.Format("Value%d", number);
    if (vector_.AddNode(out, tag_, -1) == 0) return false;
    if (id > 0) {
      out.SetPropertyValue(data_id_, id);
      add(id, out);
    }
    return true;
  }

 private:
  void add(int id, const RYXmlWrapperBase& child) {
    const int place = static_cast<int>(children_.size());
    if (places_.add(id, place) == place) children_.push_back(child);
  }

  RYXmlWrapperBase& vector_;
  const RYPropertyName data_id_{kDataIdName};
  IdIndex places_;
  std::vector<RYXmlWrapperBase> children_;
  CString tag_;
};

void size_vector(RYXmlWrapperBase& vector, int base, int count) {
  if (vector.GetNodeCount() > count) {
    vector.SetSizeTrimFromEnd(count);
    return;
  }
  ValuesByDataId values(vector);
  RYXmlWrapperBase value;
  for (int number = 1; number <= count; ++number) {
    if (!values.check_get(value, base, number)) return;
  }
}

bool convert(RYXmlWrapperBase& node, bool& element) {
  int value = 0;
  if (read_number(node, value) == 0 || (value != 0 && value != 1)) return false;
  element = value != 0;
  return true;
}

bool convert(RYXmlWrapperBase& node, int& element) {
  int value = 0;
  if (read_number(node, value) == 0) return false;
  element = value;
  return true;
}

bool convert(RYXmlWrapperBase& node, double& element) {
  double value = kMissingValue;
  if (read_number(node, value) == 0) return false;
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

constexpr int kMostValues = 999;  // the bases of two vectors are 1000 apart

template <class Array>
int read_values(const RYXmlWrapperBase* vector, Array* values) {
  if (values == nullptr || vector == nullptr || vector->IsNodeValid() == 0) return -1;
  const int size = values->GetSize();
  int filled = 0;
  for (Children child(*vector); child && filled < size; ++child) {
    if (child->IsEmpty() == 0) read_number(*child, (*values)[filled++]);
  }
  return filled;
}

template <class Array>
void write_values(Array* values, RYXmlWrapperBase* vector) {
  int base = 0;
  if (values == nullptr || vector == nullptr || vector->GetDataID(base) == 0) return;
  const int size = std::min(values->GetSize(), kMostValues);
  if (vector->GetNodeCount() > size) {
    vector->SetSizeTrimFromEnd(size);
    int i = 0;
    for (Children child(*vector); child; ++child) write_number(*child, (*values)[i++]);
    return;
  }
  ValuesByDataId children(*vector);
  RYXmlWrapperBase child;
  for (int i = 0; i < size; ++i) {
    if (children.check_get(child, base, i + 1)) write_number(child, (*values)[i]);
  }
}

}  // namespace

void rytree_nlsf_add_params_node_DataID(RYXmlWrapperBase* tree, int count) {
  if (tree == nullptr || count > kMostParameters) return;
  if (tree->IsNodeValid() == 0) tree->CreateNew(0, nullptr);
  tree->SetDataID(kTreeDataId);
  for (const Place& setting : kSettings) {
    RYXmlWrapperBase node;
    CString number;
    number.Format("%d", setting.data_id);
    check_get_child(node, *tree, setting.tag, {.attribute = kDataIdName, .value = number});
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

int rytree_value_from_tree_sub_nodes_to_vector_bool(RYXmlWrapperBase* vector, HostArrayObject* values) {
  return read_values(vector, open_bools(values));
}

int rytree_value_from_tree_sub_nodes_to_vector_double(RYXmlWrapperBase* vector, HostArrayObject* values) {
  return read_values(vector, open_doubles(values));
}

int rytree_value_from_tree_sub_nodes_to_vector_int(RYXmlWrapperBase* vector, HostArrayObject* values) {
  return read_values(vector, open_ints(values));
}

void rytree_value_from_vec_bool_to_tree_sub_nodes(HostArrayObject* values, RYXmlWrapperBase* vector) {
  write_values(open_bools(values), vector);
}

void rytree_value_from_vec_double_to_tree_sub_nodes(HostArrayObject* values, RYXmlWrapperBase* vector) {
  write_values(open_doubles(values), vector);
}

void rytree_value_from_vec_int_to_tree_sub_nodes(HostArrayObject* values, RYXmlWrapperBase* vector) {
  write_values(open_ints(values), vector);
}
