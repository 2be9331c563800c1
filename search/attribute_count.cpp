// Counting nodes by an attribute.
#include <rytree_Utils/search.h>

#include "frame/children.h"

namespace {

struct Count {
  const bool any;  // without regard to attributes
  const RYPropertyName attribute;
  const char* const value;  // may be null
  const bool count_missing;
  const bool recursive;
  CString read{};

  int below(const RYXmlWrapperBase& node) {
    int count = 0;
    for (NodesBelow at(node, recursive); at; ++at) {
      if (counts(*at)) ++count;
    }
    return count;
  }

  bool counts(const RYXmlWrapperBase& node) {
    if (any) return true;
    if (value == nullptr) return count_missing || node.HasProperty(attribute) != 0;
    if (node.GetPropertyValue(attribute, read) == 0) return count_missing;
    return lstrcmpA(value, read) == 0;
  }
};

}  // namespace

int rytree_count_items_by_attribute(RYXmlWrapperBase* node, const char* attribute, const char* value,
                                    int countMissing, int recursive) {
  if (node == nullptr || node->IsNodeValid() == 0) return -1;
  Count count{attribute == nullptr, RYPropertyName(attribute), value, countMissing != 0, recursive != 0};
  return count.below(*node);
}
