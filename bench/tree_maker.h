// The tree on which everything is measured.
#pragma once

#include <string>
#include <vector>

/// A settings tree as XML text: 10 to 20 children a branch, at most 6 levels, 120 tags, "DataID" and "Label"
/// on every node, "Show" on a third of them, texts of 1 to 24 bytes on the leaves. Where 6 levels cannot hold
/// all nodes, branches have more children.
struct MadeTree {
  std::string xml;
  std::string other_xml;                // the same tree with the new values
  std::vector<int> leaf_ids;            // in document order
  std::vector<std::string> new_values;  // one for each of these leaves
  int last_id;                          // of the last node in document order; IDs are unique and ascend
};

/// The same number of nodes gives the same tree, on every machine.
MadeTree make_tree(int nodes);

/// A root with `nodes` leaves. Their attribute "Order" holds the numbers from 1 to `nodes`, shuffled.
std::string make_flat_tree(int nodes);
