// Date nodes.
#pragma once

#include <rytree_host/node.h>

extern "C" {

/// Makes `node` a date node: node ID 14, the attribute "NumFormat" with the text "D9", and the number as its
/// value. Nonzero, or 0 if `node` is null or invalid.
RYTREE_API int rytree_set_date_node(RYXmlWrapperBase* node, double value);

}  // extern "C"
