// What the calls of export_growth.cpp work on.
#pragma once

#include <rytree_Utils.h>

/// What is loaded once for each number of nodes.
struct SceneInput {
  int nodes;
  RYXmlWrapperBase tree;  // the tree on which the libraries are compared
  RYXmlWrapperBase rows;  // a root with leaves only, their attribute "Order" shuffled
  CArray<int, int> ids;   // of all leaves of the tree, shuffled
  CStringArray values;    // one for each of these IDs
  CArray<int, int> sorted_ids;
  int last_id;  // of the last node of the tree
};

const SceneInput& scene_input(int nodes);

/// What each call gets afresh.
struct Scene : SceneInput {
  explicit Scene(const SceneInput& from);

  RYXmlWrapperBase other;     // a second tree
  RYXmlWrapperBase made;      // a bare root, for what a row of the table makes before its call
  RYXmlWrapperBase empty;     // a bare root
  RYXmlWrapperBase found;     // an invalid handle
  CArray<int, int> int_list;  // the lists and the host arrays below are empty
  CStringArray text_list;
  HostIntArray ints;
  HostStringArray texts;
  HostStringArray labels;
  HostDoubleArray doubles;
  HostBoolArray bools;
  CString text;
  int number = 0;
};

// What a row may make before its call.

/// Children of `made` with the tags "Row1", "Row2", …: the number is also their node ID, "DataID" and text,
/// the tag also their attribute "Name".
void make_numbered(Scene& scene);
/// The same children, below a `made` that is a vector of fit parameters, and the host arrays.
void make_vector(Scene& scene);
/// Children of `made` tagged A, B, … Z, AA, AB, …
void make_letters(Scene& scene);
/// A copy of `rows`, with the DataID 420, as a child of `made`.
void make_branch(Scene& scene);
/// A composite range in `made`. Its ranges and their sub-nodes together are as many as the nodes.
void make_ranges(Scene& scene);
/// Children of `made` with the tags "X", "Y" and "S" in turn.
void make_flat_ranges(Scene& scene);
/// An attribute "NodeID" with the number of "DataID" on every node below the root of the tree.
void make_node_ids(Scene& scene);
/// One element for each node in the host arrays, apart from `labels`.
void make_arrays(Scene& scene);
/// "Row = NUMBER, " for each node in `text`.
void make_pairs(Scene& scene);
/// A repeat number on every direct child of the tree.
void make_repeats(Scene& scene);
/// The DataID 7 on all nodes of `tree` and `rows`.
void make_equal_ids(Scene& scene);
/// A last row with the tag "Last".
void make_last(Scene& scene);
/// Only ten different values of "Order" among the rows.
void make_few_values(Scene& scene);
