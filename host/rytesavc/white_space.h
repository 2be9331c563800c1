// White space between the tags of a branch: layout, which is not text, unless the attribute xml:space says
// otherwise.
#pragma once

#include <string_view>

#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

// Whether white space in the node is text. `name` is that of the attribute in the node's tree, `inherited`
// the answer for the node's parent.
inline bool KeepsWhiteSpace(const Node& node, const Name* name, bool inherited) {
  const Attribute* const found = node.Find(name);
  if (found == nullptr || found->value.kind() == Value::kInt) return inherited;
  const std::string_view said(found->value.chars(), found->value.length());
  return said == "preserve" || (inherited && said != "default");
}

}  // namespace rytesavc
