// The encoding of narrow strings.
#pragma once

#include <rytree_host/node.h>

extern "C" {

/// Tells the node class which encoding the narrow strings are in. The result is that of
/// RYXmlWrapperBase::SetDefaultCodePage: nonzero on success, 0 for an unknown page, which changes nothing.
RYTREE_API int rytree_set_default_code_page(int page);

}  // extern "C"
