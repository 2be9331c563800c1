// Lists of values by ID: their differences, and an apply and a copy that tell which IDs found no node.
#include <rytree_Utils/extras.h>
#include <rytree_Utils/transfer.h>

#include <set>

#include "extras/matching.h"

namespace rytree {

namespace {

std::vector<detail::Numbered> numbered(const CArray<int, int>& ids) {
  std::vector<detail::Numbered> all;
  all.reserve(static_cast<std::size_t>(ids.GetSize()));
  for (int i = 0; i < ids.GetSize(); ++i) all.emplace_back(ids[i], i);
  return all;
}

std::string value_at(const ValueList& list, int place) { return std::string(list.values[place].View()); }

/// The IDs that no node of the index has, each once.
std::vector<int> unmatched(const CArray<int, int>& ids, const NodesById& nodes) {
  std::vector<int> missing;
  std::set<int> met;
  for (const int id : ids) {
    // Values are never written by a negative ID.
    if ((id < 0 || !nodes.contains(id)) && met.insert(id).second) missing.push_back(id);
  }
  return missing;
}

}  // namespace

std::vector<ValueDifference> differences_of_values(const ValueList& old_list, const ValueList& new_list) {
  std::vector<int> of_old(static_cast<std::size_t>(old_list.ids.GetSize()), -1);
  std::vector<int> of_new(static_cast<std::size_t>(new_list.ids.GetSize()), -1);
  for (const auto& [old_place, new_place] :
       detail::match_equal(numbered(old_list.ids), numbered(new_list.ids))) {
    of_old[static_cast<std::size_t>(old_place)] = new_place;
    of_new[static_cast<std::size_t>(new_place)] = old_place;
  }
  std::vector<ValueDifference> found;
  for (int i = 0; i < new_list.ids.GetSize(); ++i) {
    const int former = of_new[static_cast<std::size_t>(i)];
    if (former < 0) {
      found.push_back({DifferenceKind::kAdded, new_list.ids[i], std::nullopt, value_at(new_list, i)});
    } else if (old_list.values[former] != new_list.values[i]) {
      found.push_back(
          {DifferenceKind::kChanged, new_list.ids[i], value_at(old_list, former), value_at(new_list, i)});
    }
  }
  for (int i = 0; i < old_list.ids.GetSize(); ++i) {
    if (of_old[static_cast<std::size_t>(i)] < 0)
      found.push_back({DifferenceKind::kRemoved, old_list.ids[i], value_at(old_list, i), std::nullopt});
  }
  return found;
}

Applied apply_values(RYXmlWrapperBase& node, const ValueList& list, const ApplyOptions& options) {
  const NodesById nodes(node, options.id_attribute, options.repeat);
  // The export takes its arrays as variables, and only reads them.
  auto& ids = const_cast<CArray<int, int>&>(list.ids);
  auto& values = const_cast<CStringArray&>(list.values);
  int duplicate = 0;
  CString message;
  Applied applied;
  applied.matched = vctree_set_values_by_ids(&node, &ids, &values, options.repeat,
                                             options.first_counts ? nullptr : &duplicate,
                                             options.store_argument, options.id_attribute, &message);
  if (applied.matched >= 0) applied.unmatched = unmatched(list.ids, nodes);
  applied.message = message.View();
  return applied;
}

Applied copy_values(RYXmlWrapperBase& source, RYXmlWrapperBase& destination, const CopyOptions& options) {
  ValueList list;
  vctree_get_values_with_ids(&source, &list.ids, &list.values, /*recursive=*/1, /*changedOnly=*/0,
                             /*repeat=*/0, options.source_id_attribute, options.all_branches ? 1 : 0,
                             nullptr);
  CArray<int, int> ids;
  for (int i = 0; i < list.ids.GetSize(); ++i) {
    if (!options.drop_empty || !list.values[i].IsEmpty()) ids.Add(list.ids[i]);
  }
  const NodesById nodes(destination, options.destination_id_attribute);
  Applied applied;
  applied.matched =
      rytree_copy_values_by_id(&source, &destination, options.store_argument, options.source_id_attribute,
                               options.destination_id_attribute, options.all_branches ? 1 : 0,
                               options.keep_bit_18_off ? 1 : 0, options.drop_empty ? 1 : 0);
  if (applied.matched >= 0) applied.unmatched = unmatched(ids, nodes);
  return applied;
}

}  // namespace rytree
