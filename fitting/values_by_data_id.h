// The values of a vector node, which stand on a grid of DataIDs.
#pragma once

#include <rytree_host/node.h>

#include "frame/children.h"
#include "frame/id_index.h"

/// Finds the children of one vector node by DataID, as rytree_check_get_node_by_dataid does one by one. The
/// children are read once; nobody else may add or remove any meanwhile.
class ValuesByDataId {
 public:
  explicit ValuesByDataId(RYXmlWrapperBase& vector) : vector_(vector) {
    for (Children child(vector); child; ++child, ++count_) {
      int id = 0;
      if (child->GetPropertyValue(data_id_, id) != 0) places_.add(id, count_);
    }
  }

  /// Puts `out` on the first child with the vector's `base` + `number`, or on a new one with the tag "Value"
  /// and the number. False if it cannot be made.
  bool check_get(RYXmlWrapperBase& out, int base, int number) {
    const int id = static_cast<int>(static_cast<unsigned>(base) + static_cast<unsigned>(number));
    const int place = places_.find(id);
    if (place >= 0) return vector_.GetChild(out, place) != 0;
    tag_.Format("Value%d", number);
    if (vector_.AddNode(out, tag_, -1) == 0) return false;
    if (id > 0) {
      out.SetPropertyValue(data_id_, id);
      places_.add(id, count_);
    }
    ++count_;
    return true;
  }

 private:
  RYXmlWrapperBase& vector_;
  const RYPropertyName data_id_{"DataID"};
  IdIndex places_;
  int count_ = 0;
  CString tag_;
};
