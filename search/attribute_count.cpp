// Counting nodes by an attribute.
#include <rytree_Utils/search.h>

#include "frame/children.h"

int rytree_count_items_by_attribute(RYXmlWrapperBase* node, const char* attribute, const char* value,
                                    int countMissing, int recursive) {
  if (node == nullptr || node->IsNodeValid() == 0) return -1;
  const RYPropertyName name(attribute);
  CString read;
  const auto counts = [&](const RYXmlWrapperBase& at) {
    if (attribute == nullptr) return true;
    if (value == nullptr) return countMissing != 0 || at.HasProperty(name) != 0;
    if (at.GetPropertyValue(name, read) == 0) return countMissing != 0;
    return lstrcmpA(value, read) == 0;
  };
  int count = 0;
  for (NodesBelow at(*node, recursive != 0); at; ++at) {
    if (counts(*at)) ++count;
  }
  return count;
}
