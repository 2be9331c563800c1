// The two halves of copying DataIDs by tag.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// Appends tag and DataID (-1 for none) of the nodes below `node`, in pre-order; with `leaves_only` of the
/// leaves. The number of nodes.
int rytree_collect_tags_and_ids(const RYXmlWrapperBase& node, CStringArray& tags, CArray<int, int>& ids,
                                bool leaves_only);

/// Gives each ID to the first node that has the tag beside it: `node` itself, then those below it. The number
/// of IDs given.
int rytree_set_ids_by_tagname(RYXmlWrapperBase& node, const CStringArray& tags, const CArray<int, int>& ids,
                              bool leaves_only);
