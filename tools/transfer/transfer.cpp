#include "transfer.h"

#include <utility>

#include "base.h"
#include "columns.h"
#include "failure.h"
#include "losses.h"
#include "streams.h"

namespace {

RYXmlWrapperBase load(const std::string& file, const Arguments& arguments, Progress& progress,
                      Outcome& outcome) {
  progress.reading(file);
  RYXmlWrapperBase tree = load_tree(file);
  const std::string lost = not_kept();
  if (!arguments.dry_run) refuse_loss(file, lost, arguments.result, arguments.allow_loss);
  const bool written = file == arguments.target || same_file(file, arguments.result);
  if (written && !lost.empty()) outcome.losses.push_back(shown_input(file) + ": " + lost);
  return tree;
}

Pairs harvest(const Arguments& arguments, RYXmlWrapperBase& source, Outcome& outcome) {
  Pairs pairs;
  CString message;
  outcome.harvested = vctree_get_values_with_ids(&source, &pairs.ids, &pairs.values, /*recursive=*/1,
                                                 /*changedOnly=*/0, /*repeat=*/0, outcome.ids.argument(),
                                                 /*allBranches=*/0, &message);
  if (outcome.harvested < 1) {
    const bool given = !arguments.id_attribute.empty();
    throw Failure(shown_input(arguments.source) + ": no value to take, as no node has " +
                  (given ? "the attribute '" + arguments.id_attribute : "an int attribute 'DataID") +
                  "' (--id-attribute NAME takes another)");
  }
  outcome.warning = message.View();
  outcome.source_nodes = source.GetTreeSize() - 1;
  return pairs;
}

int apply(const Arguments& arguments, RYXmlWrapperBase& target, Pairs& pairs, const Ids& ids) {
  if (pairs.ids.GetSize() == 0) return 0;
  CString message;
  // Where `duplicate` is null, the first of several equal IDs is used.
  const int matched =
      vctree_set_values_by_ids(&target, &pairs.ids, &pairs.values, /*repeat=*/0,
                               /*duplicate=*/nullptr, /*storeArgument=*/0, ids.argument(), &message);
  if (matched < 0) throw Failure(shown_input(arguments.target) + ": " + std::string(message.View()));
  return matched;
}

/// A copy of the target in which no rule keeps a value from being stored; invalid if none does so.
RYXmlWrapperBase without_rules(const RYXmlWrapperBase& target) {
  constexpr int kRules = 0x70000;
  const RYPropertyName name("ThemeApplicability");
  RYXmlWrapperBase copy;
  target.Clone(copy, 1);
  bool rules = false;
  for (RYXmlWrapperBase node(copy); node.IsNodeValid() != 0; node.NextBelow(node, copy)) {
    int bits = 0;
    if (node.GetPropertyValue(name, bits) == 0 || (bits & kRules) == 0) continue;
    rules = true;
    node.SetPropertyValue(name, bits & ~kRules);
  }
  if (!rules) copy.ReleaseNode();
  return copy;
}

/// Marks the nodes that differ from what they were.
void mark_changes(RYXmlWrapperBase& before, RYXmlWrapperBase& after) {
  CStringArray saved;
  VCTreeGetValues(&before, &saved, /*childrenOnly=*/false);
  saved.RemoveAt(0);  // the root itself
  VCTreeUpdateChanges(&after, &saved);
}

/// Why nothing is to be written; empty if nothing speaks against it.
std::string misfit(const Arguments& arguments, const Outcome& outcome) {
  const Findings& found = outcome.findings;
  if (outcome.matched == 0 && outcome.pairs.ids.GetSize() > 0 && !arguments.allow_no_match) {
    return shown_input(arguments.target) + ": no node has an ID of " + shown_input(arguments.source) +
           " (--allow-no-match writes all the same)";
  }
  if (!arguments.strict) return "";
  std::vector<std::string> faults;
  const auto add = [&](int count, const char* one, const char* more) {
    if (count > 0) faults.push_back(counted(count, one, more));
  };
  add(found.count(Fate::kNoNode), "ID has no node", "IDs have no node");
  add(found.count(Fate::kDuplicate), "ID stands twice in SOURCE", "IDs stand twice in SOURCE");
  add(found.shared_ids, "ID stands twice in TARGET", "IDs stand twice in TARGET");
  if (arguments.prefer.empty())
    add(found.count(Fate::kConflict), "conflict without --prefer", "conflicts without --prefer");
  if (outcome.matched == 0 && outcome.pairs.ids.GetSize() > 0) faults.emplace_back("nothing matches");
  std::string text;
  for (const std::string& fault : faults) text += (text.empty() ? "" : ", ") + fault;
  return text.empty() ? "" : shown_input(arguments.target) + ": " + text + " (--strict)";
}

}  // namespace

Outcome transfer(const Arguments& arguments, Progress& progress) {
  Outcome outcome;
  outcome.ids = Ids(arguments.id_attribute);
  RYXmlWrapperBase source = load(arguments.source, arguments, progress, outcome);
  RYXmlWrapperBase& target = outcome.result;
  target = load(arguments.target, arguments, progress, outcome);

  RYXmlWrapperBase base;
  if (!arguments.base.empty()) base = load(arguments.base, arguments, progress, outcome);

  progress.stage("harvesting values");
  outcome.ids.number({source, target, base});
  Pairs pairs = harvest(arguments, source, outcome);
  Settled settled;
  if (base.IsNodeValid() != 0) settled = settle(base, target, outcome.ids, arguments.prefer == "new", pairs);

  progress.stage("applying " + counted(outcome.harvested, "value", "values"));
  RYXmlWrapperBase before;
  target.Clone(before, 1);
  RYXmlWrapperBase unruled = without_rules(target);
  outcome.matched = apply(arguments, target, pairs, outcome.ids);
  if (unruled.IsNodeValid() != 0) apply(arguments, unruled, pairs, outcome.ids);

  progress.stage("comparing");
  outcome.findings =
      find_out(outcome.ids, pairs, settled, source, before, target, unruled, !arguments.report.empty());
  outcome.pairs = std::move(pairs);
  outcome.misfit = misfit(arguments, outcome);
  outcome.ids.remove_numbers(target);
  if (!arguments.no_marks) mark_changes(before, target);
  return outcome;
}
