// Finding a node by its number.
#include <rytree_Utils/lookup.h>

#include "frame/children.h"
#include "frame/flag.h"
#include "frame/words.h"

namespace {

/// The filters of rytree_get_node, as a flag word packs them.
struct NumberFilters {
  int max_level;  // -1: no limit
  bool attribute_ends_descent;
  bool branches_only;
};

NumberFilters number_filters(DWORD flags) {
  return {.max_level = (flags & kNodeLimitLevel) != 0 ? static_cast<int>(flags & kNodeLevelMask) : -1,
          .attribute_ends_descent = (flags & kNodeAttributeRequired) == 0,
          .branches_only = (flags & kNodeBranchesOnly) != 0};
}

// One search: what is the same on every level.
struct NumberSearch {
  RYXmlWrapperBase& out;
  const int index;
  int& counter;
  const NumberFilters filters;
  const RYPropertyName attribute;  // empty: no test

  bool find(const RYXmlWrapperBase& node, long long level) {
    if (filters.max_level >= 0 && level > filters.max_level) return false;
    for (Children child(node); child; ++child) {
      const bool leaf = child->GetNodeCount() < 1;
      const bool marked = !attribute.empty() && child->HasProperty(attribute) != 0;
      if (!filters.attribute_ends_descent && !attribute.empty() && !marked) continue;
      if (leaf && filters.branches_only) continue;
      if (counter == index) {
        out = *child;
        return true;
      }
      counter = one_more(counter);
      if (leaf || (filters.attribute_ends_descent && marked)) continue;
      if (find(*child, level + 1)) return true;
    }
    return false;
  }
};

}  // namespace

extern "C" int flagged_rytree_get_node(RYXmlWrapperBase* node, RYXmlWrapperBase* out, int index, int* counter,
                                       int maxLevel, const char* attribute, Flag attributeEndsDescent,
                                       Flag branchesOnly, int level) {
  if (node == nullptr || out == nullptr || counter == nullptr || index < 0) return 0;
  const NumberFilters filters{maxLevel, is_set(attributeEndsDescent), is_set(branchesOnly)};
  NumberSearch search{*out, index, *counter, filters, RYPropertyName(attribute)};
  return search.find(*node, level) ? 1 : 0;
}
[[gnu::alias("flagged_rytree_get_node")]] decltype(rytree_get_node) rytree_get_node;

int rytree_get_node_ex(RYXmlWrapperBase* node, RYXmlWrapperBase* out, int index, DWORD flags,
                       const char* attribute) {
  if (out == nullptr) return 0;
  int counter = 0;
  const NumberFilters filters = number_filters(flags);
  rytree_get_node(node, out, index, &counter, filters.max_level, attribute, filters.attribute_ends_descent,
                  filters.branches_only, 0);
  return 1;
}
