// The value of the node at the end of a tag path.
#pragma once

#include <rytree_host/node.h>

/// Reads (`get` nonzero) or writes (0) the value of the node at the end of the path from `start`. Only
/// writing makes missing levels. 1, or 0 if the node was not reached or its text is not of this type; a read
/// then leaves `value` untouched.
int tmxfu_tree_node_string_value(RYXmlWrapperBase& start, CString& value, int get, const char* firstTag,
                                 ...) RYTREE_ENDS_IN_NULL;
int tmxfu_tree_node_int_value(RYXmlWrapperBase& start, int& value, int get, const char* firstTag,
                              ...) RYTREE_ENDS_IN_NULL;
int tmxfu_tree_node_double_value(RYXmlWrapperBase& start, double& value, int get, const char* firstTag,
                                 ...) RYTREE_ENDS_IN_NULL;
