// The walk of the filters over their candidates.
#pragma once

#include <utility>

#include "frame/children.h"

/// Removes, of the nodes with one DataID, those for which `keeps(node)` is false. Below a candidate none is
/// looked for.
template <class Keeps>
class Candidates {
 public:
  Candidates(int data_id, Keeps keeps) : id_(data_id), keeps_(std::move(keeps)) {}

  /// Filters the node itself if it is a candidate, else what is below it. 0 if a node is invalid, else 1.
  int visit(RYXmlWrapperBase& node) {
    int id = 0;
    if (node.GetPropertyValue(data_id_, id) == 0 || id != id_) return below(node);
    if (!keeps_(node)) node.RemoveNode();
    return 1;
  }

  int below(const RYXmlWrapperBase& node) {
    if (node.IsNodeValid() == 0) return 0;
    for (Children child(node); child;) {
      RYXmlWrapperBase taken = child.take();
      if (visit(taken) == 0) return 0;
    }
    return 1;
  }

 private:
  int id_;
  Keeps keeps_;
  RYPropertyName data_id_{"DataID"};
};
