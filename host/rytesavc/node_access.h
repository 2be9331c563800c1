// The way from a handle to the tree behind it, for the files of this folder.
#pragma once

#include "rytree_host/node.h"

struct NodeAccess {
  static rytesavc::Tree* tree(const RYXmlWrapperBase& handle) { return handle.tree_; }
  /// Null on an invalid or dead handle.
  static rytesavc::Node* node(const RYXmlWrapperBase& handle) {
    return handle.IsNodeValid() != 0 ? handle.node_ : nullptr;
  }
  static int Put(RYXmlWrapperBase& handle, rytesavc::Tree* tree, rytesavc::Node* node) {
    return handle.Point(tree, node);
  }
};
