// The texts of a range's sub-nodes, and action IDs.
#include <rytree_Utils/composite_range.h>

#include "frame/children.h"
#include "frame/node_text.h"
#include "ranges/composite_range.h"

namespace {

// Leads from the "Y" of a range to the node of its third value. A missing one is a failure only where it is
// looked for by tag.
bool find_third(RYXmlWrapperBase& range, RYXmlWrapperBase& y, const char* tag, RYXmlWrapperBase& third) {
  if (tag != nullptr) return range.FindChild(tag, third, 1) != 0;
  y.NextSibling(third);
  return true;
}

}  // namespace

int vctree_get_composite_subrange_values(RYXmlWrapperBase& range, CString& x, CString& y, CString& third,
                                         int type) {
  RYXmlWrapperBase node;
  if (range.FindChild("X", node, 1) == 0) return 0;
  read_text(node, x);
  if (range.FindChild("Y", node, 1) == 0) return 0;
  read_text(node, y);
  if (!find_third(range, node, vctree_subrange_layout(type).third_tag, node)) return 0;
  if (node.IsNodeValid() != 0) read_text(node, third);
  return 1;
}

int vctree_set_composite_subrange_values(RYXmlWrapperBase& range, const char* x, const char* y,
                                         const char* third, int subNodeId, int type, int combine, int reset) {
  if (range.IsNodeValid() == 0) return 0;
  if (reset != 0) range.ResetNode(1);
  RYXmlWrapperBase no_parent;
  vctree_add_subrange_to_composite_range(range, no_parent, -1, subNodeId, type);

  const char* const third_tag = vctree_subrange_layout(type).third_tag;
  RYXmlWrapperBase node;
  if (range.FindChild("X", node, 1) == 0) return 0;
  write_text(node, x);
  if (range.FindChild("Y", node, 1) == 0) return 0;
  if (third_tag == nullptr && combine != 0) {
    write_text(node, CString(y) + "," + third);
    return 1;
  }
  write_text(node, y);
  if (!find_third(range, node, third_tag, node)) return 0;
  write_text(node, third);
  return 1;
}

int rytree_set_composite_subrange_values(RYXmlWrapperBase* range, const char* x, const char* y,
                                         const char* third, int type) {
  if (range == nullptr) return 0;
  return vctree_set_composite_subrange_values(*range, x, y, third, kCompositeSubNodeId, type, 0, 1);
}

int VCTreeSetCompositeSubRangeNodeActionId(RYXmlWrapperBase& range, int rangeActionId, int subActionId) {
  if (vctree_get_set_node_action_id(range, rangeActionId, 0) == 0) return 0;
  if (subActionId < 1) return 1;
  for (Children child(range); child; ++child) {
    if (vctree_get_set_node_action_id(*child, subActionId, 0) == 0) return 0;
  }
  return 1;
}

int vctree_get_set_node_action_id(RYXmlWrapperBase& node, int& id, int get) {
  return get != 0 ? node.GetPropertyValue(kActionIdName, id) : node.SetPropertyValue(kActionIdName, id);
}
