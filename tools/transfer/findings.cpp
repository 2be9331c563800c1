#include "findings.h"

#include <rytree_Utils/extras.h>

#include <utility>

#include "columns.h"
#include "nodes.h"
#include "streams.h"

namespace {

constexpr const char* kThemeRule = "ThemeApplicability";

constexpr unsigned kUsesData = 0x100000;

/// Whether a branch is one value, so that nothing below it is harvested.
bool is_one_value(const RYXmlWrapperBase& branch) {
  return (static_cast<unsigned>(rytree::int_attribute_of(branch, kThemeRule).value_or(0)) & kUsesData) != 0;
}

/// The value that a harvest reads: the text of a leaf, an attribute of a branch.
std::optional<std::string> own_value(const RYXmlWrapperBase& node) {
  if (node.GetNodeCount() == 0) return rytree::text_of(node);
  return rytree::attribute_of(node, is_one_value(node) ? "Data" : "Use");
}

/// Calls `visit` with each node that has a value and no ID, in the branches that a harvest reads.
template <class Visit>
void visit_values_without_id(const RYXmlWrapperBase& parent, const RYPropertyName& attribute,
                             const Visit& visit) {
  RYXmlWrapperBase child;
  for (parent.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
    int id = -1;
    child.GetPropertyValue(attribute, id);
    if (id == -1 && !own_value(child).value_or("").empty()) visit(child);
    if (child.GetNodeCount() > 0 && !is_one_value(child)) visit_values_without_id(child, attribute, visit);
  }
}

/// A text of the source that a harvest passes over.
struct Passed {
  int id = -1;
  std::string path;
  std::string text;
  const char* reason = "";
  bool told = false;
};

std::vector<Passed> passed_over(const RYXmlWrapperBase& source, const RYXmlWrapperBase& target,
                                const Ids& ids) {
  std::vector<Passed> passed;
  const auto add = [&](const RYXmlWrapperBase& node, int id, const char* reason) {
    std::string text = rytree::text_of(node);
    if (!text.empty()) passed.push_back({id, path_of(node), std::move(text), reason});
  };
  if (rytree::text_of(source) != rytree::text_of(target)) add(source, -1, "text of the root");
  int nodes_inside = 0;  // that are to come, of a branch that is one value
  visit_ids(source, ids.attribute(), [&](const RYXmlWrapperBase& node, int id) {
    if (nodes_inside > 0) {
      --nodes_inside;
      return add(node, id, "inside a branch that is one value");
    }
    if (node.GetNodeCount() == 0) return;
    add(node, id, "text beside children");
    if (!is_one_value(node)) return;
    for (RYXmlWrapperBase below(node); below.NextBelow(below, node) != 0;) ++nodes_inside;
  });
  return passed;
}

/// The values of one ID in the source.
struct Entry {
  int count = 0;
  bool is_empty = false;  // the first
};

class Search {
 public:
  Search(const Ids& ids, const Pairs& harvested, const Settled& settled, const Trees& trees,
         bool with_unchanged)
      : ids_(ids),
        settled_(settled),
        with_unchanged_(with_unchanged),
        passed_(passed_over(trees.source, trees.before, ids)) {
    for (int i = 0; i < harvested.ids.GetSize(); ++i) {
      Entry& entry = entries_[harvested.ids[i]];
      if (++entry.count == 1) entry.is_empty = harvested.values[i].IsEmpty();
    }
    for (Passed& one : passed_) {
      if (one.id >= 0) first_passed_.emplace(one.id, &one);
    }
  }

  void look_at_target(const Trees& trees);
  void look_at_source(const RYXmlWrapperBase& source, const Pairs& harvested);
  void look_at_ids(const RYXmlWrapperBase& tree, const std::string& file);

  Findings found;

 private:
  void add(Fate fate, std::string id, std::string path, std::optional<std::string> old_value,
           std::optional<std::string> new_value, std::string note = "") {
    ++found.counts[static_cast<std::size_t>(fate)];
    if (fate != Fate::kUnchanged || with_unchanged_)
      found.list.push_back({fate, std::move(id), std::move(path), std::move(old_value), std::move(new_value),
                            std::move(note), row_});
  }
  void look_at_passed(int id, const RYXmlWrapperBase& before);
  void look_at_node(int id, const RYXmlWrapperBase& before, const RYXmlWrapperBase& after,
                    const RYXmlWrapperBase& unruled);
  int compare(Fate fate, const std::string& id, const std::string& note, const RYXmlWrapperBase& before,
              const RYXmlWrapperBase& after);

  const Ids& ids_;
  const Settled& settled_;
  bool with_unchanged_;
  std::vector<Passed> passed_;
  std::unordered_map<int, Passed*> first_passed_;
  int row_ = 0;                             // of the node that is looked at
  std::unordered_map<int, Entry> entries_;  // of each ID in the source
  std::unordered_map<int, int> nodes_;      // of each ID in the target
};

/// Adds a finding for each difference of two nodes and gives their number.
int Search::compare(Fate fate, const std::string& id, const std::string& note, const RYXmlWrapperBase& before,
                    const RYXmlWrapperBase& after) {
  int differences = 0;
  if (std::string old_value = rytree::text_of(before), new_value = rytree::text_of(after);
      old_value != new_value) {
    ++differences;
    found.changed_texts += fate != Fate::kKept ? 1 : 0;
    add(fate, id, path_of(after), std::move(old_value), std::move(new_value), note);
  }
  for (const auto& [name, new_value] : rytree::attributes_of(after)) {
    std::optional<std::string> old_value = rytree::attribute_of(before, name.c_str());
    if (name == kThemeRule || old_value == new_value) continue;
    ++differences;
    found.changed_attributes += fate != Fate::kKept ? 1 : 0;
    add(fate, id, path_of(after) + '@' + name, std::move(old_value), new_value, note);
  }
  return differences;
}

/// Tells of a text of the source that was not taken for this node, unless the node has it anyway.
void Search::look_at_passed(int id, const RYXmlWrapperBase& before) {
  const auto place = first_passed_.find(id);
  if (place == first_passed_.end()) return;
  Passed& passed = *place->second;
  passed.told = true;
  if (std::string text = rytree::text_of(before); text != passed.text)
    add(Fate::kNotTaken, ids_.text(id), path_of(before), std::move(text), passed.text, passed.reason);
}

void Search::look_at_node(int id, const RYXmlWrapperBase& before, const RYXmlWrapperBase& after,
                          const RYXmlWrapperBase& unruled) {
  look_at_passed(id, before);
  const auto entry = entries_.find(id);
  if (entry == entries_.end()) {
    if (own_value(after))
      add(Fate::kNoValue, ids_.text(id), path_of(after), own_value(after), own_value(after));
    return;
  }
  ++found.matched_nodes;
  const std::string shown_id = ids_.text(id);
  if (settled_.defaults.contains(id))
    return add(Fate::kDefault, shown_id, path_of(after), own_value(before), own_value(before));
  const auto conflict = settled_.conflicts.find(id);
  const bool in_conflict = conflict != settled_.conflicts.end();
  std::string note = nodes_[id] > 1 ? "several nodes have this ID" : "";
  if (in_conflict) {
    const auto& [base, mine, mine_taken] = conflict->second;
    note = "old default " + shown(base) + "; " + (mine_taken ? "mine" : "new") + " taken";
    if (!mine_taken) return add(Fate::kConflict, shown_id, path_of(after), own_value(before), mine, note);
  }
  int differences = compare(in_conflict ? Fate::kConflict : Fate::kApplied, shown_id, note, before, after);
  if (unruled.IsNodeValid() != 0) differences += compare(Fate::kKept, shown_id, kThemeRule, after, unruled);
  if (differences > 0) return;
  std::optional<std::string> value = own_value(after);
  if (entry->second.is_empty && value && !value->empty()) {
    add(Fate::kNotTaken, shown_id, path_of(after), value, "", "an empty value does not replace Data");
  } else {
    add(Fate::kUnchanged, shown_id, with_unchanged_ ? path_of(after) : "", value, value);
  }
}

void Search::look_at_target(const Trees& trees) {
  const RYXmlWrapperBase& after = trees.after;
  found.target_nodes = after.GetTreeSize();
  visit_ids(after, ids_.attribute(), [&](const RYXmlWrapperBase&, int id) {
    const bool shared = id >= 0 && ++nodes_[id] == 2 && entries_.contains(id);
    if (shared && !settled_.defaults.contains(id)) found.shared_ids.push_back(ids_.text(id));
  });
  RYXmlWrapperBase old_node(trees.before);
  RYXmlWrapperBase free_node(trees.unruled);
  visit_ids(after, ids_.attribute(), [&](const RYXmlWrapperBase& node, int id) {
    ++row_;
    old_node.NextBelow(old_node, trees.before);
    if (free_node.IsNodeValid() != 0) free_node.NextBelow(free_node, trees.unruled);
    if (id >= 0) look_at_node(id, old_node, node, free_node);
  });
  row_ = -1;
}

/// What of the source has no node in the target, comes a second time, was not taken, or has no ID.
void Search::look_at_source(const RYXmlWrapperBase& source, const Pairs& harvested) {
  std::unordered_map<int, std::vector<std::string>> paths;  // of the IDs that are told here
  visit_ids(source, ids_.attribute(), [&](const RYXmlWrapperBase& node, int id) {
    const auto entries = entries_.find(id);
    if (entries == entries_.end() || (entries->second.count == 1 && nodes_.contains(id))) return;
    if (own_value(node)) paths[id].push_back(path_of(node));
  });
  std::unordered_map<int, std::size_t> seen;
  for (int i = 0; i < harvested.ids.GetSize(); ++i) {
    const int id = harvested.ids[i];
    const std::size_t place = seen[id]++;
    if (id < 0 || (place == 0 && nodes_.contains(id))) continue;  // no ID is below 0, which is told elsewhere
    const std::vector<std::string>& known = paths[id];
    const bool is_default = settled_.defaults.contains(id);
    const Fate fate = place > 0 ? Fate::kDuplicate : is_default ? Fate::kDefault : Fate::kNoNode;
    const char* const note = place > 0    ? "the first value of this ID is used"
                             : is_default ? "no node of the target has this ID"
                                          : "";
    add(fate, ids_.text(id), place < known.size() ? known[place] : "", std::nullopt,
        std::string(harvested.values[i].View()), note);
  }
  for (const Passed& one : passed_) {
    if (!one.told)
      add(Fate::kNotTaken, one.id < 0 ? "" : ids_.text(one.id), one.path, std::nullopt, one.text, one.reason);
  }
  visit_values_without_id(source, RYPropertyName(ids_.attribute()), [&](const RYXmlWrapperBase& node) {
    if (rytree::attribute_of(node, ids_.shown_attribute()).value_or("-1") == "-1")
      add(Fate::kNoId, "", path_of(node), std::nullopt, own_value(node));
  });
}

/// The IDs that are none.
void Search::look_at_ids(const RYXmlWrapperBase& tree, const std::string& file) {
  const std::vector<BadId> all = ids_.bad_ones(tree);
  if (!all.empty()) found.files_with_bad_ids.push_back(shown_input(file));
  for (const BadId& bad : all)
    add(Fate::kBadId, bad.id, path_of(bad.node), std::nullopt, own_value(bad.node),
        shown_input(file) + ": " + bad.reason);
}

}  // namespace

const char* name_of(Fate fate) {
  constexpr std::array<const char*, kFates> kNames = {"applied",   "unchanged", "kept",     "default",
                                                      "conflict",  "no-node",   "no-value", "duplicate",
                                                      "not-taken", "no-id",     "bad-id"};
  return kNames[static_cast<std::size_t>(fate)];
}

std::string Findings::examples(Fate fate) const {
  std::vector<std::string> texts;
  for (const Finding& finding : list) {
    if (finding.fate == fate) texts.push_back(finding.id.empty() ? finding.path : finding.id);
  }
  return first_of(texts);
}

Findings find_out(const Ids& ids, const Pairs& harvested, const Settled& settled, const Trees& trees,
                  const Arguments& arguments) {
  Search search(ids, harvested, settled, trees, !arguments.report.empty());
  search.look_at_target(trees);
  search.look_at_source(trees.source, harvested);
  search.look_at_ids(trees.source, arguments.source);
  search.look_at_ids(trees.before, arguments.target);
  if (trees.base.IsNodeValid() != 0) search.look_at_ids(trees.base, arguments.base);
  return std::move(search.found);
}
