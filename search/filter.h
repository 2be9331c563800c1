// Workers of the filter by texts. Lists and nodes are not null.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

/// rytree_filter without a look at the node itself: 0 if a node is invalid, else 1.
int rytree_filter_walk(RYXmlWrapperBase* node, int dataId, int includeMode, int includeId,
                       CStringArray* includes, int excludeMode, int excludeId, CStringArray* excludes);

/// 1 if the candidate stays, 0 if it fails.
int rytree_filter_test_node(RYXmlWrapperBase* candidate, int includeMode, int includeId,
                            CStringArray* includes, int excludeMode, int excludeId, CStringArray* excludes);

/// Appends the texts of the nodes below `node` that have that DataID, in pre-order.
void rytree_collect_texts_by_dataid(RYXmlWrapperBase* node, CStringArray* texts, int dataId);
