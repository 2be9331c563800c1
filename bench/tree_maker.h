// The tree on which everything is measured.
#pragma once

#include <string>
#include <vector>

/// A settings tree as XML text: 10 to 20 children a branch, at most 6 levels (branches grow wider where these
/// do not hold the nodes), 120 tags, "DataID" and "Label" on every node, "Show" on a third, texts of 1 to 24
/// bytes on leaves.
struct MadeTree {
  std::string xml;
  std::vector<int> leaf_ids;  // in document order, as `new_values`
  std::vector<std::string> new_values;
  int last_id;  // of the last node in document order; IDs are unique and ascend
};

/// The same number of nodes gives the same tree, on every machine.
MadeTree make_tree(int nodes);

/// A root with `nodes` leaves, their order shuffled in the attribute "Order".
std::string make_flat_tree(int nodes);
