// The text of a node.
#pragma once

#include <rytree_host/node.h>

/// Sets `text` to the node's own text, empty for an invalid node. The characters that `text` has room for are
/// reused.
inline void read_text(RYXmlWrapperBase& node, CString& text) {
  if (node.NodeValue(text, 1, 1, nullptr) == 0) text.Empty();
}
