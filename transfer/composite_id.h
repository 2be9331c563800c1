// Composite IDs: the ID of a node joined with the repeat number in force above it.
#pragma once

#include "frame/attributes.h"
#include "frame/repeat_id.h"

/// The step of rytree_combine_treenode_id_with_repeat_id; `own_name` is the attribute name RepeatID, prepared.
inline int combine_id(const RYXmlWrapperBase& node, const RYPropertyName& own_name, int repeat, int& id,
                      int& child_repeat) {
  int own = -1;
  if (!read_repeat_id(node, own_name, own)) {
    if (id < 0 || repeat <= 0) return 0;
    if (id >= 0x10000) return -1;
    id = static_cast<int>(static_cast<unsigned>(repeat) << 16 | static_cast<unsigned>(id));
    return 3;
  }
  if (own == kMaxRepeatId) return -3;
  if (repeat <= 0) {
    child_repeat = own;
    return 1;
  }
  if ((own & repeat) != 0) return -2;
  child_repeat = own | repeat;
  return 2;
}

/// Reads the IDs of the nodes of one walk.
class NodeIds {
 public:
  explicit NodeIds(const char* attribute)
      : id_(attribute != nullptr ? attribute : kDataIdName), repeat_(kRepeatIdName) {}

  /// The ID attribute, -1 for none.
  int plain(const RYXmlWrapperBase& node) const {
    int id = -1;
    node.GetPropertyValue(id_, id);
    return id;
  }
  int combine(const RYXmlWrapperBase& node, int repeat, int& id, int& child_repeat) const {
    return combine_id(node, repeat_, repeat, id, child_repeat);
  }

 private:
  RYPropertyName id_;
  RYPropertyName repeat_;
};

/// Overwrites the error string, if there is one, with the message of a negative code of the step above.
void report_conflict(int code, const RYXmlWrapperBase& node, int id, int repeat, CString* error);
