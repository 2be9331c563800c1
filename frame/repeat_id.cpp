// Reading and writing repeat numbers.
#include "frame/repeat_id.h"

#include <rytree_Utils/lookup.h>

int VCTreeSetRepeatId(RYXmlWrapperBase& node, int id) {
  if (id >= 1) return node.SetPropertyValue(kRepeatIdName, id);
  node.RemoveProperty(kRepeatIdName);
  return 1;
}

int VCTreeGetRepeatId(RYXmlWrapperBase& node, int& id) {
  return read_repeat_id(node, RYPropertyName(kRepeatIdName), id) ? 1 : 0;
}
