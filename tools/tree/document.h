// The tree in the file that the program was given.
#pragma once

#include <rytree_Utils.h>

#include <string>

#include "failure.h"
#include "streams.h"

/// What was asked for is not in the tree: the program ends with status 1, not 2.
struct NotFound : Failure {
  using Failure::Failure;
};

/// A node and where it is in the tree.
struct Place {
  RYXmlWrapperBase node;
  int row = 0;
  int level = 0;
  CString path;
};

struct Document {
  /// Loads the tree. Throws a Failure.
  explicit Document(std::string file_name);

  /// The node of a dotted path, with or without numbers as "Root.Line[2]", or of a row number. Throws NotFound.
  Place at(const std::string& place);
  /// How many nodes the tree has.
  int count();
  /// Throws NotFound, with the file in front of the reason.
  [[noreturn]] void miss(const std::string& reason) const {
    throw NotFound(shown_input(file) + ": " + reason);
  }
  /// The same for a Failure.
  [[noreturn]] void fail(const std::string& reason) const {
    throw Failure(shown_input(file) + ": " + reason);
  }
  std::string file;  // as the user named it
  std::string lost;  // what of the file is not in the tree; "" if nothing
  RYXmlWrapperBase root;
};

/// The node of a row number, in the numbering of rytree_get_node_ex, where the first child of the root has
/// row 2; invalid if there is none.
RYXmlWrapperBase node_at_row(RYXmlWrapperBase& root, int row, DWORD flags = 0);
