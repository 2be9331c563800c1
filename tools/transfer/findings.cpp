#include "findings.h"

#include <rytree_Utils/extras.h>

#include <utility>

#include "columns.h"
#include "nodes.h"

namespace {

constexpr const char* kThemeRule = "ThemeApplicability";

std::string path_of(RYXmlWrapperBase node) {
  CString path;
  VCTreeGetPathStr(path, &node);
  return std::string(path.View());
}

/// The value that a harvest reads: the text of a leaf, an attribute of a branch.
std::optional<std::string> own_value(const RYXmlWrapperBase& node) {
  if (node.GetNodeCount() == 0) return rytree::text_of(node);
  const auto use = rytree::attribute_of(node, "Use");
  return use ? use : rytree::attribute_of(node, "Data");
}

class Search {
 public:
  Search(const Ids& ids, const Pairs& pairs, const Settled& settled, bool with_unchanged)
      : ids_(ids), settled_(settled), with_unchanged_(with_unchanged) {
    for (const int id : pairs.ids) ++entries_[id];
  }

  void look_at_target(const RYXmlWrapperBase& before, const RYXmlWrapperBase& after,
                      const RYXmlWrapperBase& unruled);
  void look_at_source(const RYXmlWrapperBase& source, const Pairs& pairs);

  Findings found;

 private:
  void add(Fate fate, int id, std::string path, std::optional<std::string> old_value,
           std::optional<std::string> new_value, std::string note = "") {
    ++found.counts[static_cast<std::size_t>(fate)];
    if (fate != Fate::kUnchanged || with_unchanged_)
      found.list.push_back(
          {fate, id, std::move(path), std::move(old_value), std::move(new_value), std::move(note), row_});
  }
  void look_at_node(int id, const RYXmlWrapperBase& before, const RYXmlWrapperBase& after,
                    const RYXmlWrapperBase& unruled);
  int compare(Fate fate, int id, const RYXmlWrapperBase& before, const RYXmlWrapperBase& after);

  const Ids& ids_;
  const Settled& settled_;
  bool with_unchanged_;
  int row_ = 0;                           // of the node that is looked at
  std::unordered_map<int, int> entries_;  // of each ID in the source
  std::unordered_map<int, int> nodes_;    // of each ID in the target
};

/// Adds a finding for each difference of two nodes and gives their number.
int Search::compare(Fate fate, int id, const RYXmlWrapperBase& before, const RYXmlWrapperBase& after) {
  int differences = 0;
  const bool applied = fate == Fate::kApplied;
  const std::string note = applied ? nodes_[id] > 1 ? "several nodes have this ID" : "" : kThemeRule;
  if (std::string old_value = rytree::text_of(before), new_value = rytree::text_of(after);
      old_value != new_value) {
    ++differences;
    found.changed_nodes += applied ? 1 : 0;
    add(fate, id, path_of(after), std::move(old_value), std::move(new_value), note);
  }
  for (const auto& [name, new_value] : rytree::attributes_of(after)) {
    std::optional<std::string> old_value = rytree::attribute_of(before, name.c_str());
    if (name == kThemeRule || old_value == new_value) continue;
    ++differences;
    found.changed_attributes += applied ? 1 : 0;
    add(fate, id, path_of(after) + '@' + name, std::move(old_value), new_value, note);
  }
  return differences;
}

void Search::look_at_node(int id, const RYXmlWrapperBase& before, const RYXmlWrapperBase& after,
                          const RYXmlWrapperBase& unruled) {
  if (const auto conflict = settled_.conflicts.find(id); conflict != settled_.conflicts.end()) {
    const auto& [base, mine, mine_taken] = conflict->second;
    add(Fate::kConflict, id, path_of(after), own_value(before), mine,
        "old default " + base + "; " + (mine_taken ? "mine" : "new") + " taken");
  } else if (settled_.defaults.contains(id)) {
    add(Fate::kDefault, id, path_of(after), own_value(before), own_value(before));
  }
  const bool settled = settled_.defaults.contains(id) || settled_.conflicts.contains(id);
  if (entries_.contains(id)) {
    int differences = compare(Fate::kApplied, id, before, after);
    if (unruled.IsNodeValid() != 0) differences += compare(Fate::kKept, id, after, unruled);
    if (differences == 0)
      add(Fate::kUnchanged, id, with_unchanged_ ? path_of(after) : "", own_value(after), own_value(after));
  } else if (!settled && own_value(after)) {
    add(Fate::kNoValue, id, path_of(after), own_value(after), own_value(after));
  }
}

void Search::look_at_target(const RYXmlWrapperBase& before, const RYXmlWrapperBase& after,
                            const RYXmlWrapperBase& unruled) {
  visit_ids(after, ids_.attribute(), [&](const RYXmlWrapperBase&, int id) {
    ++found.target_nodes;
    if (id >= 0 && ++nodes_[id] == 2 && entries_.contains(id)) ++found.shared_ids;
  });
  RYXmlWrapperBase old_node(before);
  RYXmlWrapperBase free_node(unruled);
  visit_ids(after, ids_.attribute(), [&](const RYXmlWrapperBase& node, int id) {
    ++row_;
    old_node.NextBelow(old_node, before);
    if (free_node.IsNodeValid() != 0) free_node.NextBelow(free_node, unruled);
    if (id >= 0) look_at_node(id, old_node, node, free_node);
  });
  row_ = -1;
}

/// What of the source has no node in the target, or comes a second time.
void Search::look_at_source(const RYXmlWrapperBase& source, const Pairs& pairs) {
  std::unordered_map<int, std::vector<std::string>> paths;  // of the IDs that are told here
  visit_ids(source, ids_.attribute(), [&](const RYXmlWrapperBase& node, int id) {
    const auto entries = entries_.find(id);
    if (entries == entries_.end() || (entries->second == 1 && nodes_.contains(id))) return;
    if (own_value(node)) paths[id].push_back(path_of(node));
  });
  std::unordered_map<int, std::size_t> seen;
  for (int i = 0; i < pairs.ids.GetSize(); ++i) {
    const int id = pairs.ids[i];
    const std::size_t place = seen[id]++;
    if (place == 0 && nodes_.contains(id)) continue;
    const std::vector<std::string>& known = paths[id];
    add(place == 0 ? Fate::kNoNode : Fate::kDuplicate, id, place < known.size() ? known[place] : "",
        std::nullopt, std::string(pairs.values[i].View()),
        place == 0 ? "" : "the first value of this ID is used");
  }
}

}  // namespace

const char* name_of(Fate fate) {
  constexpr std::array<const char*, kFates> kNames = {"applied",  "unchanged", "kept",     "default",
                                                      "conflict", "no-node",   "no-value", "duplicate"};
  return kNames[static_cast<std::size_t>(fate)];
}

Findings find_out(const Ids& ids, const Pairs& pairs, const Settled& settled, const RYXmlWrapperBase& source,
                  const RYXmlWrapperBase& before, const RYXmlWrapperBase& after,
                  const RYXmlWrapperBase& unruled, bool with_unchanged) {
  Search search(ids, pairs, settled, with_unchanged);
  search.look_at_target(before, after, unruled);
  search.look_at_source(source, pairs);
  return std::move(search.found);
}
