// The prune: removing from a tree what equals another one by ID.
#include <rytree_Utils/transfer.h>

#include "frame/children.h"
#include "frame/id_index.h"
#include "transfer/composite_id.h"
#include "transfer/decoration.h"
#include "transfer/equal_texts.h"
#include "transfer/records.h"

namespace {

class Prune {
 public:
  Prune(const IdIndex& index, const CStringArray& values, const char* id_attribute)
      : index_(index), values_(values), node_ids_(id_attribute) {}

  /// Prunes what is below the node; the number of nodes removed or a code.
  int walk(RYXmlWrapperBase& node, int repeat) {
    int count = 0;
    for (Children child(node); child;) {
      int id = node_ids_.plain(*child);
      int child_repeat = repeat;
      if (node_ids_.combine(*child, repeat, id, child_repeat) < 0) return kIdConflict;
      const bool branch = child->GetNodeCount() > 0;
      if (branch) {
        const int below = walk(*child, child_repeat);
        if (below < 0) return below;
        count += below;
      }
      if (branch ? child->GetNodeCount() > 0 : !is_unchanged(*child, id)) {
        ++child;
        continue;
      }
      remove(node, child);
      ++count;
    }
    return count;
  }

 private:
  bool is_unchanged(const RYXmlWrapperBase& leaf, int id) {
    const int place = id >= 0 ? index_.find(id) : -1;
    if (place < 0) return false;
    present_.read_leaf(leaf, value_);
    return equal_ignoring_case(value_, values_[place]);
  }

  static void remove(RYXmlWrapperBase& node, Children& child) {
    RYXmlWrapperBase removed = child.take();
    node.RemoveChild(removed, nullptr);
  }

  const IdIndex& index_;
  const CStringArray& values_;
  const NodeIds node_ids_;
  DecoratedValues present_;
  CString value_;  // of the leaf at hand
};

}  // namespace

int rytree_remove_unchange_nodes_by_id(RYXmlWrapperBase* source, RYXmlWrapperBase* destination,
                                       const char* sourceIdAttribute, const char* destinationIdAttribute) {
  if (source == nullptr || destination == nullptr) return kBadArgument;
  CArray<int, int> ids;
  CStringArray values;
  const int read =
      _tree_get_values_with_ids(*source, ids, {.values = &values}, {.id_attribute = sourceIdAttribute});
  if (read < 1) return 0;
  const IdIndex index(ids);
  if (index.first_duplicate() >= 0) {
    const int duplicate = ids[index.first_duplicate()];
    return duplicate > 0 ? -duplicate : kDuplicateId;
  }
  return Prune(index, values, destinationIdAttribute).walk(*destination, 0);
}
