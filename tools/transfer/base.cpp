#include "base.h"

#include <algorithm>

namespace {

/// The values of each ID; with a map that holds one for each, the first.
template <class Values>
Values values_of(RYXmlWrapperBase tree, const Ids& ids) {
  Pairs pairs;
  vctree_get_values_with_ids(&tree, &pairs.ids, &pairs.values, /*recursive=*/1, /*changedOnly=*/0,
                             /*repeat=*/0, ids.attribute(), /*allBranches=*/0, /*error=*/nullptr);
  Values values;
  for (int i = 0; i < pairs.ids.GetSize(); ++i) values.emplace(pairs.ids[i], pairs.values[i].View());
  return values;
}

}  // namespace

Settled settle(const RYXmlWrapperBase& base, const RYXmlWrapperBase& target, const Ids& ids, bool prefer_new,
               const Pairs& pairs) {
  const auto bases = values_of<std::unordered_map<int, std::string>>(base, ids);
  const auto targets = values_of<std::unordered_multimap<int, std::string>>(target, ids);
  Settled settled;
  std::unordered_map<int, bool> taken;
  for (int i = 0; i < pairs.ids.GetSize(); ++i) {
    const int id = pairs.ids[i];
    const auto [decision, is_first] = taken.try_emplace(id, true);
    const auto former = bases.find(id);
    if (is_first && former != bases.end()) {
      const std::string mine(pairs.values[i].View());
      const auto is_new = [&](const auto& entry) {
        return entry.second != former->second && entry.second != mine;
      };
      const auto [first, last] = targets.equal_range(id);
      if (mine == former->second) {
        settled.defaults.insert(id);
        decision->second = false;
      } else if (std::any_of(first, last, is_new)) {
        settled.conflicts.emplace(id, Conflict{former->second, mine, !prefer_new});
        decision->second = !prefer_new;
      }
    }
    if (!decision->second) continue;
    settled.carried.ids.Add(id);
    settled.carried.values.Add(pairs.values[i]);
  }
  return settled;
}
