// XML text as nodes: the way back of the writer, and the reading of other programs' XML.
//
// Comments, processing instructions and a DOCTYPE are passed over and CDATA is text. The text of a leaf is
// kept as it is. In an element with children, what stands between two tags is text too, unless it is nothing
// but white space. External and undeclared entities are errors; the expansion of others is bounded.
#pragma once

#include <cstdint>
#include <string_view>

#include "files.h"
#include "rytree_host/code_page.h"
#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

// Both give null on a failure, which they note. The strings are in `page`.
//
// Makes the nodes in `tree`, the top at that depth and hanging nowhere. On a failure no node is left.
Node* ReadXml(std::string_view utf8, Tree& tree, std::uint32_t depth, const CodePage* page);
// A tree with a root, which is the caller's to release.
Tree* ReadXml(InputFile& file, const CodePage* page);

}  // namespace rytesavc
