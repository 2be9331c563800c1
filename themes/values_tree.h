// The branch that holds saved values.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// Writes the pairs into `target`, with a "Label" for each child that `labels` (may be null) has an element
/// for. Null pointers and failures as in vctree_set_theme.
bool vctree_build_values_tree(RYXmlWrapperBase* target, const CArray<int, int>* ids,
                              const CStringArray* values, const char* comment, const CStringArray* labels);
