// Values between arrays and the children of any vector node.
#include <rytree_Utils/weighting.h>

#include <algorithm>

#include "fitting/values_by_data_id.h"
#include "frame/children.h"
#include "frame/host_arrays.h"

namespace {

constexpr int kMostValues = 999;  // the bases of two vectors are 1000 apart

template <class Array>
int read_values(const RYXmlWrapperBase* vector, Array* values) {
  if (values == nullptr || vector == nullptr || vector->IsNodeValid() == 0) return -1;
  const int size = values->GetSize();
  int filled = 0;
  for (Children child(*vector); child && filled < size; ++child) {
    if (child->IsEmpty() == 0) child->NodeValue((*values)[filled++], 1);
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
    for (Children child(*vector); child; ++child) child->NodeValue((*values)[i++], 0);
    return;
  }
  ValuesByDataId children(*vector);
  RYXmlWrapperBase child;
  for (int i = 0; i < size; ++i) {
    if (children.check_get(child, base, i + 1)) child.NodeValue((*values)[i], 0);
  }
}

}  // namespace

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
