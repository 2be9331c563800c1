#include "transfer.h"

#include <rytree_Utils.h>

#include <unordered_set>

#include "changes.h"
#include "failure.h"
#include "held_signals.h"
#include "losses.h"
#include "staged_file.h"

namespace {

/// The harvested IDs and their values.
struct Pairs {
  CArray<int, int> ids;
  CStringArray values;
};

struct TreeIds {
  int nodes = 0;
  std::unordered_set<int> ids;
};

RYXmlWrapperBase load_tree(const std::string& file, const Arguments& arguments, Outcome& outcome) {
  RYXmlWrapperBase tree;
  if (tree.load(file.c_str(), 0) == 0) throw file_failure(file);
  const std::string lost = not_kept();
  refuse_loss(file, lost, arguments.result, arguments.allow_loss);
  const bool written = file == arguments.target || same_file(file, arguments.result);
  if (written && !lost.empty()) outcome.losses.push_back(file + ": " + lost);
  return tree;
}

/// Counts the nodes below `parent` and collects their IDs, combined with the repeat numbers above them.
void collect_ids(const RYXmlWrapperBase& parent, int repeat, const char* id_attribute, TreeIds& found) {
  RYXmlWrapperBase child;
  for (parent.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
    int id = -1;
    int child_repeat = repeat;
    child.GetPropertyValue(id_attribute == nullptr ? "DataID" : id_attribute, id);
    rytree_combine_treenode_id_with_repeat_id(&child, &id, &child_repeat, repeat);
    ++found.nodes;
    if (id >= 0) found.ids.insert(id);
    collect_ids(child, child_repeat, id_attribute, found);
  }
}

void harvest(const Arguments& arguments, RYXmlWrapperBase& source, Pairs& pairs, Outcome& outcome) {
  CString message;
  const char* const id_attribute = arguments.id_attribute_or_null();
  outcome.harvested = vctree_get_values_with_ids(&source, &pairs.ids, &pairs.values, /*recursive=*/1,
                                                 /*changedOnly=*/0, /*repeat=*/0, id_attribute,
                                                 /*allBranches=*/0, &message);
  if (outcome.harvested < 1) {
    throw Failure(arguments.source + ": no value to take, as no node has an int attribute '" +
                  (id_attribute == nullptr ? "DataID" : id_attribute) +
                  "' (--id-attribute NAME takes another)");
  }
  outcome.warning = message.View();
  TreeIds found;
  collect_ids(source, /*repeat=*/0, id_attribute, found);
  outcome.source_nodes = found.nodes;
}

/// Finds out which of the harvested IDs have no node in the target, and how many are repeated.
void match_ids(const Arguments& arguments, const RYXmlWrapperBase& target, const Pairs& pairs,
               Outcome& outcome) {
  TreeIds found;
  collect_ids(target, /*repeat=*/0, arguments.id_attribute_or_null(), found);
  outcome.target_nodes = found.nodes;
  std::unordered_set<int> seen;
  for (const int id : pairs.ids) {
    if (!seen.insert(id).second) {
      ++outcome.repeated;
    } else if (!found.ids.contains(id)) {
      outcome.homeless.push_back(id);
    }
  }
}

/// The values below the root before the transfer, with which the change marks compare.
CStringArray saved_list(RYXmlWrapperBase& target) {
  CStringArray values;
  VCTreeGetValues(&target, &values, /*childrenOnly=*/false);
  values.RemoveAt(0);  // the root itself
  return values;
}

void apply(const Arguments& arguments, RYXmlWrapperBase& target, Pairs& pairs, Outcome& outcome) {
  CString message;
  // Where `duplicate` is null, the first of several equal IDs is used.
  outcome.matched =
      vctree_set_values_by_ids(&target, &pairs.ids, &pairs.values, /*repeat=*/0, /*duplicate=*/nullptr,
                               /*storeArgument=*/0, arguments.id_attribute_or_null(), &message);
  if (outcome.matched < 0) throw Failure(arguments.target + ": " + std::string(message.View()));
}

/// Writes the theme to the staged file and reads it back.
void write_theme(const Arguments& arguments, const StagedFile& file, Pairs& pairs) {
  const std::string comment = "Values of " + arguments.source;
  if (!vctree_save_values_with_ids(file.path(), &pairs.ids, &pairs.values, comment.c_str(), nullptr)) {
    throw file_failure(arguments.theme);
  }
  Pairs back;
  CString comment_back;
  if (!vctree_read_values_with_ids(file.path(), &back.ids, &back.values, &comment_back)) {
    throw file_failure(arguments.theme);
  }
  if (VCTreeIsSame(&pairs.ids, &back.ids) == 0 ||
      VCTreeGetChanged(&pairs.values, &back.values, /*caseSensitive=*/true) != -1 ||
      comment_back != comment.c_str()) {
    throw Failure(arguments.theme + ": the theme does not read back as it was written");
  }
}

}  // namespace

Outcome transfer(const Arguments& arguments, int change_limit,
                 const std::function<void(const char*)>& stage) {
  Outcome outcome;
  Pairs pairs;
  stage("reading");
  RYXmlWrapperBase source = load_tree(arguments.source, arguments, outcome);
  RYXmlWrapperBase target = load_tree(arguments.target, arguments, outcome);

  stage("harvest");
  harvest(arguments, source, pairs, outcome);

  stage("apply");
  match_ids(arguments, target, pairs, outcome);
  CStringArray saved = saved_list(target);
  RYXmlWrapperBase before;
  target.Clone(before, 1);
  apply(arguments, target, pairs, outcome);
  find_changes(before, target, saved, change_limit, outcome);

  stage("save");
  const HeldSignals signals;
  StagedFile theme(arguments.theme);
  write_theme(arguments, theme, pairs);
  signals.check();
  if (target.Save(arguments.result.c_str()) == 0) throw file_failure(arguments.result);
  theme.commit();
  return outcome;
}
