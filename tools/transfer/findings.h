// What became of each value and each node of a transfer.
#pragma once

#include <rytree_Utils.h>

#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "arguments.h"
#include "ids.h"

/// The harvested IDs and their values.
struct Pairs {
  CArray<int, int> ids;
  CStringArray values;
};

enum class Fate {
  kApplied,
  kUnchanged,
  kKept,
  kDefault,
  kConflict,
  kNoNode,
  kNoValue,
  kDuplicate,
  kNotTaken,  // a text of SOURCE that is no value, or cannot replace one
  kNoId,      // a value of SOURCE without an ID
  kBadId,     // an ID, in any of the trees, that is not one
};
constexpr std::size_t kFates = 11;

/// The name of a fate in the report file.
const char* name_of(Fate fate);

struct Finding {
  Fate fate = Fate::kApplied;
  std::string id;    // as the user knows it; empty for none
  std::string path;  // the tags from the root on, joined by full stops, then "@Name" for an attribute
  std::optional<std::string> old_value;  // in TARGET before; nothing where there was none
  std::optional<std::string> new_value;  // in RESULT; of a value that was not taken, the one in SOURCE
  std::string note;
  int row = -1;  // of the node in TARGET, in document order, the root being 0
};

/// A value that the user and the new version changed both.
struct Conflict {
  std::string base;
  std::string mine;
  bool mine_taken = true;
};

/// What a comparison with the old defaults has settled before the transfer.
struct Settled {
  std::unordered_set<int> defaults;  // IDs whose value in SOURCE is still the old default
  std::unordered_map<int, Conflict> conflicts;
  Pairs carried;  // what is left
};

/// The trees of a transfer. The last three have one shape.
struct Trees {
  RYXmlWrapperBase source;
  RYXmlWrapperBase base;     // invalid if there is none
  RYXmlWrapperBase before;   // the target
  RYXmlWrapperBase after;    // the result
  RYXmlWrapperBase unruled;  // what the result would be without theme rules; invalid if there are none
};

struct Findings {
  std::vector<Finding> list;  // of the target in its order, then of the source
  std::array<int, kFates> counts{};
  int changed_texts = 0;
  int changed_attributes = 0;
  int target_nodes = 0;
  int matched_nodes = 0;  // of the target, whose ID has a value in the source
  std::vector<std::string> files_with_bad_ids;
  std::vector<std::string> shared_ids;  // that have several nodes in the target, which all get the value

  int count(Fate fate) const { return counts[static_cast<std::size_t>(fate)]; }
  /// The first IDs of that fate, or the paths where there are none: "3, 5, 8, 9, …".
  std::string examples(Fate fate) const;
};

/// Tells what became of each harvested value and each node of the target with an ID, which texts of the source were
/// not taken, and all IDs that are none. Values that are as they were are listed only for a report file.
Findings find_out(const Ids& ids, const Pairs& harvested, const Settled& settled, const Trees& trees,
                  const Arguments& arguments);
