// The action IDs of nodes.
#include <rytree_Utils/action_id.h>

#include "frame/attributes.h"
#include "frame/children.h"

int vctree_get_set_node_action_id(RYXmlWrapperBase& node, int& id, int get) {
  return get != 0 ? node.GetPropertyValue(kActionIdName, id) : node.SetPropertyValue(kActionIdName, id);
}

int VCTreeSetCompositeSubRangeNodeActionId(RYXmlWrapperBase& range, int rangeActionId, int subActionId) {
  if (range.SetPropertyValue(kActionIdName, rangeActionId) == 0) return 0;
  if (subActionId < 1) return 1;
  for (Children child(range); child; ++child) {
    if (child->SetPropertyValue(kActionIdName, subActionId) == 0) return 0;
  }
  return 1;
}
