// A flat branch as one line of text, "key=value,key=value,", and back. The keys are the children's tags, the
// values their texts. No nesting, attributes or IDs; nothing is quoted.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Sets `text` to the pairs of the children, each followed by the pair separator. 1, or 0 with an empty text
/// if the node is null, invalid or has no children; 0 for a null `text`.
RYTREE_API int rytree_branch_to_key_value_pairs_str(RYXmlWrapperBase* node, CString* text, char keySeparator,
                                                    char pairSeparator);

/// Replaces the children of `node` by the pairs of the text, in order. The first key separator of a pair
/// divides it; white space around key and value is cut off. A pair without key separator or key, or with a
/// key that is not a valid tag, makes no child. A pair separator between double quotes does not end the pair,
/// and the quotes stay in the value. The children are removed before the text is looked at. 1 if `node` has
/// children afterwards, else 0; 0 for null pointers (a null text empties the node).
RYTREE_API int rytree_key_value_pairs_str_to_branch(RYXmlWrapperBase* node, const char* text,
                                                    char keySeparator, char pairSeparator);

}  // extern "C"
