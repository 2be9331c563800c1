// Makes nodes of XML text, that of the writer and that of other programs.
//
// Comments, processing instructions and a DOCTYPE are passed over and counted, and CDATA is text. The text of
// a leaf is kept as it is. In an element with children, what stands between two tags is text too, unless it
// is nothing but white space and xml:space does not keep that. External and undeclared entities are errors;
// the expansion of others is bounded.
#pragma once

#include <cstdint>
#include <string_view>

#include "files.h"
#include "rytree_host/code_page.h"
#include "rytree_host/detail/tree_store.h"

namespace rytesavc {

// Both give null on a failure, which they note. The strings are in `page`, null for UTF-8.
//
// The nodes are made in `tree`, the top one at that depth and without a parent. None are left after a
// failure.
Node* ReadXml(std::string_view utf8, Tree& tree, std::uint32_t depth, const CodePage* page);
// A tree with a root. The caller releases it.
Tree* ReadXml(InputFile& file, const CodePage* page);

}  // namespace rytesavc
