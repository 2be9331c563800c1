// A flat branch as one line of text, "key=value,key=value,", and back. The keys are the children's tags, the
// values their texts. No nesting, attributes or IDs. Nothing is put in quotes: a value with a pair separator,
// a double quote or white space at an end may not come back as it was. The two separators are ASCII
// characters that differ, neither of them a double quote.
#pragma once

#include <rytree_host/framework.h>
#include <rytree_host/node.h>

extern "C" {

/// Sets `text` to the pairs of the children, each followed by the pair separator; a child that is a branch
/// gives its own text. 1, or 0 with an empty text if the node is null, invalid or has no children; 0 for a
/// null `text`.
RYTREE_API int rytree_branch_to_key_value_pairs_str(RYXmlWrapperBase* node, CString* text, char keySeparator,
                                                    char pairSeparator);

/// Replaces the children of `node` by the pairs of the text, in order. The former children are gone whatever
/// the text is; the node's own text and its attributes stay. The first key separator of a pair divides it;
/// white space around key and value is cut off. A pair without key separator or key, or with a key that is
/// not a valid tag, makes no child. A pair separator between two double quotes does not end the pair, and the
/// quotes stay in the value. 1 if `node` has children afterwards; 0 if not, for a null or invalid node, and
/// for a null text, which counts as empty.
RYTREE_API int rytree_key_value_pairs_str_to_branch(RYXmlWrapperBase* node, const char* text,
                                                    char keySeparator, char pairSeparator);

}  // extern "C"
