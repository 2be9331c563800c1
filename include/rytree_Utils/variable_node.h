// Tests on nodes: whether a variable is an input or an output, and which options are in force.
#pragma once

#include <rytree_host/node.h>

/// Whether a variable node is an input, or an output. Its child "io" tells: 0 (or what is not an int) is an
/// input, 1 an output, any other int both, or with `strict` neither. False without that child and for an
/// invalid node. Makes nothing.
RYTREE_API bool XVarNode_IsInput(RYXmlWrapperBase& node, bool strict);
RYTREE_API bool XVarNode_IsOutput(RYXmlWrapperBase& node, bool strict);

/// 1 if `mask`, of which the low 32 bits count, has a bit in common with the options in force: the int
/// attribute "InteractiveOptions" of `node` or else of the nearest node above that has it, also if it is 0
/// there. What is not an int does not count. 0 otherwise, also if no node has it and for an invalid node.
RYTREE_API int vctree_test_ICOPT_recursively(RYXmlWrapperBase& node, unsigned long mask);
