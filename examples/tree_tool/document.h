// The tree in the file that the program was given.
#pragma once

#include <rytree_Utils.h>

#include <string>

#include "failure.h"

/// What was asked for is not in the tree: status 1 instead of 2.
struct NotFound : Failure {
  using Failure::Failure;
};

/// A node and where it stands.
struct Place {
  RYXmlWrapperBase node;
  int row = 0;
  int level = 0;
  CString path;
};

struct Document {
  /// Loads the tree. Throws a Failure.
  explicit Document(std::string file_name);

  /// The node of a dotted path, or of a row number. Throws NotFound.
  Place at(const std::string& place);
  /// How many nodes the tree has.
  int count();
  /// Throws NotFound, with the file in front of the reason.
  [[noreturn]] void miss(const std::string& reason) const { throw NotFound(file + ": " + reason); }
  /// The same for a Failure.
  [[noreturn]] void fail(const std::string& reason) const { throw Failure(file + ": " + reason); }
  /// Writes the tree to a file, which holds the old or the new one at every moment. Throws a Failure.
  void save(const std::string& target) const;

  std::string file;
  RYXmlWrapperBase root;
};

/// The node of a row number, in the numbering of rytree_get_node_ex, where the first child of the root has
/// row 2; invalid if there is none.
RYXmlWrapperBase node_at_row(RYXmlWrapperBase& root, int row, DWORD flags = 0);

/// The tag of a node, and its own text.
std::string tag_of(const RYXmlWrapperBase& node);
std::string value_of(RYXmlWrapperBase node);
