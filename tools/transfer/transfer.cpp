#include "transfer.h"

#include <utility>

#include "base.h"
#include "columns.h"
#include "failure.h"
#include "losses.h"
#include "platform/paths.h"
#include "streams.h"

namespace {

RYXmlWrapperBase load(const std::string& file, const Arguments& arguments, Progress& progress,
                      Outcome& outcome) {
  progress.reading(file);
  RYXmlWrapperBase tree = load_tree(file);
  const std::string lost = not_kept();
  refuse_loss(file, lost, arguments.result, arguments.allow_loss);
  const bool written = file == arguments.target || platform::IsSameFile(file, arguments.result);
  if (written && !lost.empty()) outcome.losses.push_back(shown_input(file) + ": " + lost);
  return tree;
}

Pairs harvest(const Arguments& arguments, RYXmlWrapperBase& source, Outcome& outcome) {
  Pairs pairs;
  outcome.harvested = vctree_get_values_with_ids(&source, &pairs.ids, &pairs.values, /*recursive=*/1,
                                                 /*changedOnly=*/0, /*repeat=*/0, outcome.ids.attribute(),
                                                 /*allBranches=*/0, /*error=*/nullptr);
  if (outcome.harvested < 1) {
    const bool given = !arguments.id_attribute.empty();
    throw Failure(shown_input(arguments.source) + ": no value to take: below the root no leaf has " +
                  (given ? "the attribute '" + arguments.id_attribute : "an int attribute 'DataID") +
                  "', nor has a branch with Use or Data (--id-attribute NAME takes another)");
  }
  outcome.source_nodes = source.GetTreeSize();
  return pairs;
}

void apply(const Arguments& arguments, RYXmlWrapperBase& target, Pairs& pairs, const Ids& ids) {
  if (pairs.ids.GetSize() == 0) return;
  CString message;
  // Where `duplicate` is null, the first of several equal IDs is used.
  const int matched =
      vctree_set_values_by_ids(&target, &pairs.ids, &pairs.values, /*repeat=*/0,
                               /*duplicate=*/nullptr, /*storeArgument=*/0, ids.argument(), &message);
  if (matched < 0) throw Failure(shown_input(arguments.target) + ": " + std::string(message.View()));
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

/// What --strict does not take, as in "s.xml: 1 ID has no node in t.xml: 7"; empty if nothing.
std::string strict_faults(const Arguments& arguments, const Outcome& outcome) {
  const Findings& found = outcome.findings;
  const std::string source = shown_input(arguments.source);
  const std::string target = shown_input(arguments.target);
  std::string text;
  const auto add = [&](int count, const std::string& what, const std::string& examples) {
    if (count > 0) text += (text.empty() ? "--strict: " : "; ") + what + ": " + examples;
  };
  const auto add_fate = [&](Fate fate, const char* one, const char* more, const std::string& where) {
    add(found.count(fate), counted(found.count(fate), one, more) + where, found.examples(fate));
  };
  add_fate(Fate::kNoNode, "ID", "IDs", " of " + source + " without a node in " + target);
  add_fate(Fate::kDuplicate, "value", "values", " of " + source + " with an ID that came before");
  const int shared = static_cast<int>(found.shared_ids.size());
  add(shared, counted(shared, "ID", "IDs") + " of several nodes in " + target, first_of(found.shared_ids));
  if (arguments.prefer.empty())
    add_fate(Fate::kConflict, "value", "values", " changed by both sides, and no --prefer");
  add_fate(Fate::kNotTaken, "text", "texts", " of " + source + " not taken");
  add_fate(Fate::kNoId, "value", "values", " of " + source + " without an ID");
  add_fate(Fate::kBadId, "ID", "IDs", " of no use in " + first_of(found.files_with_bad_ids));
  return text;
}

/// Why nothing is to be written; empty if nothing speaks against it.
std::string misfit(const Arguments& arguments, const Outcome& outcome) {
  std::string text = arguments.strict ? strict_faults(arguments, outcome) : "";
  if (text.empty() && outcome.findings.matched_nodes == 0 && !arguments.allow_no_match) {
    text = shown_input(arguments.target) + ": no node has the ID of a value of " +
           shown_input(arguments.source) + " (--allow-no-match takes that)";
  }
  return text;
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
  Pairs harvested = harvest(arguments, source, outcome);
  Settled settled;
  const bool three_way = base.IsNodeValid() != 0;
  if (three_way) settled = settle(base, target, outcome.ids, arguments.prefer == "new", harvested);
  Pairs& carried = three_way ? settled.carried : harvested;

  progress.stage("applying " + counted(outcome.harvested, "value", "values"));
  RYXmlWrapperBase before;
  target.Clone(before, 1);
  RYXmlWrapperBase unruled = without_rules(target);
  apply(arguments, target, carried, outcome.ids);
  if (unruled.IsNodeValid() != 0) apply(arguments, unruled, carried, outcome.ids);

  progress.stage("comparing");
  outcome.findings =
      find_out(outcome.ids, harvested, settled, {source, base, before, target, unruled}, arguments);
  outcome.pairs = std::move(carried);
  outcome.misfit = misfit(arguments, outcome);
  outcome.ids.remove_numbers(target);
  if (!arguments.no_marks) mark_changes(before, target);
  return outcome;
}
