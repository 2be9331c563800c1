// Sorting children.
#include <rytree_Utils/arrange.h>

#include <vector>

#include "edit/exchange_order.h"
#include "frame/children.h"

bool rytree_sort_children_by_int_attribute(RYXmlWrapperBase* node, const char* attribute, int ascending) {
  if (node == nullptr || node->IsValid() == 0 || node->GetNodeCount() < 2) return false;
  const RYPropertyName name(attribute);
  if (name.empty()) return false;
  CArray<int, int> order;   // which child goes to each place
  std::vector<int> places;  // of the children that are sorted
  std::vector<int> keys;    // theirs
  order.Reserve(node->GetNodeCount());
  for (Children child(*node); child; ++child) {
    const int place = order.Add(order.GetSize());
    int key = 0;
    if (child->GetPropertyValue(name, key) == 0) continue;
    places.push_back(place);
    keys.push_back(key);
  }
  const std::vector<int> sorted = exchange_sort_order(keys, ascending != 0);
  for (std::size_t i = 0; i < sorted.size(); ++i)
    order[places[i]] = places[static_cast<std::size_t>(sorted[i])];
  return node->ArrangeChildren(order) != 0;
}
