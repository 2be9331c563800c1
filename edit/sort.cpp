// Sorting children.
#include <rytree_Utils/arrange.h>

#include <vector>

#include "edit/exchange_order.h"
#include "frame/children.h"

namespace {

/// Brings the content of nodes[order[i]] to nodes[i] for all i, cycle by cycle.
void rearrange(std::vector<RYXmlWrapperBase>& nodes, std::vector<int> order) {
  for (std::size_t start = 0; start < order.size(); ++start) {
    for (std::size_t at = start; order[at] != static_cast<int>(at);) {
      const auto from = static_cast<std::size_t>(order[at]);
      order[at] = static_cast<int>(at);
      if (from == start) break;
      nodes[at].ExchangeContent(nodes[from]);
      at = from;
    }
  }
}

}  // namespace

bool rytree_sort_children_by_int_attribute(RYXmlWrapperBase* node, const char* attribute, int ascending) {
  if (node == nullptr || node->IsValid() == 0 || node->GetNodeCount() < 2) return false;
  const RYPropertyName name(attribute);
  if (name.empty()) return false;
  std::vector<RYXmlWrapperBase> nodes;
  std::vector<int> keys;
  nodes.reserve(static_cast<std::size_t>(node->GetNodeCount()));
  keys.reserve(nodes.capacity());
  for (Children child(*node); child; ++child) {
    int key = 0;
    if (child->GetPropertyValue(name, key) == 0) continue;
    nodes.push_back(*child);
    keys.push_back(key);
  }
  rearrange(nodes, exchange_sort_order(keys, ascending != 0));
  return true;
}
