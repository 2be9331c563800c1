// The text and the tag of a node.
#pragma once

#include <rytree_host/node.h>

/// Sets `text` to the node's own text, empty for an invalid node. The characters that `text` has room for are
/// reused.
inline void read_text(RYXmlWrapperBase& node, CString& text) {
  if (node.NodeValue(text, 1, 1, nullptr) == 0) text.Empty();
}

/// Makes `text` the node's own text; 0 if the node does not take it.
inline int write_text(RYXmlWrapperBase& node, const CString& text) {
  // One operation of the node class reads and writes; writing leaves the text as it is.
  return node.NodeValue(const_cast<CString&>(text), 0, 1, nullptr);
}

/// Sets `tag` to the node's tag, empty where the node class cannot tell it.
inline void read_tag(const RYXmlWrapperBase& node, CString& tag) {
  if (node.GetTagName(tag) == 0) tag.Empty();
}
