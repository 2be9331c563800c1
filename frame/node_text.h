// The text and the tag of a node.
#pragma once

#include <rytree_host/node.h>

/// Sets `text` to the node's own text, empty for an invalid node. Reuses the buffer of `text`.
inline void read_text(RYXmlWrapperBase& node, CString& text) {
  if (node.NodeValue(text, 1, 1, nullptr) == 0) text.Empty();
}

/// Makes `text` the node's own text; 0 if the node does not take it.
inline int write_text(RYXmlWrapperBase& node, const CString& text) {
  // One operation of the node class reads and writes; writing leaves the text as it is.
  return node.NodeValue(const_cast<CString&>(text), 0, 1, nullptr);
}

/// Sets `value` to the number or the numbers in the node's text; 0, and `value` as it was, if there are none.
template <class Value>
int read_number(RYXmlWrapperBase& node, Value& value) {
  return node.NodeValue(value, 1);
}

/// Makes a number the node's text; 0 if the node does not take it.
template <class Value>
int write_number(RYXmlWrapperBase& node, Value& value) {
  return node.NodeValue(value, 0);
}

/// Sets `tag` to the node's tag, empty where the node class cannot supply it.
inline void read_tag(const RYXmlWrapperBase& node, CString& tag) {
  if (node.GetTagName(tag) == 0) tag.Empty();
}
