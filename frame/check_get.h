// Finding a child, and making it where it is missing.
#pragma once

#include <rytree_host/node.h>

/// What rytree_tree_check_get_node gives a child beside its tag.
struct ChildDetails {
  int id = -1;  // node ID, for a child that is made; -1: none
  const char* attribute = nullptr;
  const char* value = nullptr;
};

/// Puts `out` on the first child of `parent` with that tag; false, and `out` invalid, if there is none.
inline bool find_child(RYXmlWrapperBase& out, const RYXmlWrapperBase& parent, const char* tag) {
  constexpr int kNoEffect = 1;  // of the node class's last argument
  return parent.FindChild(tag, out, kNoEffect) != 0;
}

/// Puts `out` on the first child of `parent` with that tag, which is made if there is none. If it cannot be
/// made, the result is false and `out` is invalid. `out` may be `parent`.
bool check_get_child(RYXmlWrapperBase& out, RYXmlWrapperBase& parent, const char* tag,
                     const ChildDetails& details = {});
