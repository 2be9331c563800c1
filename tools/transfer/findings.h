// What became of each value and each node of a transfer.
#pragma once

#include <rytree_Utils.h>

#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "ids.h"

/// The harvested IDs and their values.
struct Pairs {
  CArray<int, int> ids;
  CStringArray values;
};

enum class Fate { kApplied, kUnchanged, kKept, kDefault, kConflict, kNoNode, kNoValue, kDuplicate };
constexpr std::size_t kFates = 8;

/// The name of a fate in the report file.
const char* name_of(Fate fate);

struct Finding {
  Fate fate = Fate::kApplied;
  int id = -1;
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
};

struct Findings {
  std::vector<Finding> list;  // of the target in its order, then of the source
  std::array<int, kFates> counts{};
  int changed_nodes = 0;
  int changed_attributes = 0;
  int target_nodes = 0;
  int shared_ids = 0;  // that have several nodes in the target, which all get the value

  int count(Fate fate) const { return counts[static_cast<std::size_t>(fate)]; }
};

/// Compares the target with what it was before, and with what it would be without theme rules if there are any
/// (else `unruled` is invalid). The three trees have one shape. `with_unchanged` lists the values that are
/// as they were, too.
Findings find_out(const Ids& ids, const Pairs& pairs, const Settled& settled, const RYXmlWrapperBase& source,
                  const RYXmlWrapperBase& before, const RYXmlWrapperBase& after,
                  const RYXmlWrapperBase& unruled, bool with_unchanged);
