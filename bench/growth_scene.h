// What the calls of export_growth.cpp work on.
#pragma once

#include <rytree_Utils.h>

/// Loaded once for each number of nodes.
struct SceneInput {
  int nodes;
  RYXmlWrapperBase tree;  // the tree on which the libraries are compared
  RYXmlWrapperBase rows;  // a root with leaves alone, shuffled by "Order"
  CArray<int, int> ids;   // of all leaves of the tree, shuffled
  CStringArray values;    // beside them
  CArray<int, int> sorted_ids;
  int last_id;  // of the last node of the tree
};

const SceneInput& scene_input(int nodes);

/// Fresh for each call.
struct Scene : SceneInput {
  explicit Scene(const SceneInput& from);

  RYXmlWrapperBase other;     // a second tree
  RYXmlWrapperBase made;      // a root alone, for what a row of the table makes before its call
  RYXmlWrapperBase empty;     // a root alone
  RYXmlWrapperBase found;     // no node
  CArray<int, int> int_list;  // the lists: no elements
  CStringArray text_list;
  HostIntArray ints;  // the host arrays: no elements
  HostStringArray texts;
  HostStringArray labels;
  HostDoubleArray doubles;
  HostBoolArray bools;
  CString text;
  int number = 0;
};

// What a row may make before its call.

/// Children of `made`, with node ID, "DataID" and a text from 1 on: tags "Row1", "Row2", …; the tag in
/// "Name".
void make_numbered(Scene& scene);
/// The same as the values of a vector of fit parameters.
void make_vector(Scene& scene);
/// Children of `made` tagged A, B, … Z, AA, AB, …
void make_letters(Scene& scene);
/// The rows as a child of `made`, with the DataID 420.
void make_branch(Scene& scene);
/// A composite range in `made`, its ranges and their sub-nodes making up the number of nodes.
void make_ranges(Scene& scene);
/// Children of `made`, "X", "Y" and "S" in turn.
void make_flat_ranges(Scene& scene);
/// "NodeID" as "DataID" in the whole tree.
void make_node_ids(Scene& scene);
/// Host arrays with an element for each node.
void make_arrays(Scene& scene);
/// "Row=text," for each node in `text`.
void make_pairs(Scene& scene);
/// A repeat number on every direct child of the tree.
void make_repeats(Scene& scene);
/// The same DataID, 7, on all nodes of the tree and of the rows.
void make_equal_ids(Scene& scene);
/// The rows end with one tagged "Last".
void make_last(Scene& scene);
/// Ten values of "Order" for all rows.
void make_few_values(Scene& scene);
