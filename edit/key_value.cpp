// Flat branches as lines of text.
#include <rytree_Utils/key_value.h>
#include <rytree_host/ryUtils.h>

#include "frame/children.h"
#include "frame/node_text.h"

int rytree_branch_to_key_value_pairs_str(RYXmlWrapperBase* node, CString* text, char keySeparator,
                                         char pairSeparator) {
  if (text == nullptr) return 0;
  text->Empty();
  if (node == nullptr || node->GetNodeCount() < 1) return 0;
  CString piece;
  for (Children child(*node); child; ++child) {
    read_tag(*child, piece);
    *text += piece;
    *text += keySeparator;
    read_text(*child, piece);
    *text += piece;
    *text += pairSeparator;
  }
  return 1;
}

int rytree_key_value_pairs_str_to_branch(RYXmlWrapperBase* node, const char* text, char keySeparator,
                                         char pairSeparator) {
  if (node == nullptr) return 0;
  node->RemoveAllChildren();
  CStringArray pairs;
  int status = 0;
  ryutilsGetTokens(text, &pairs, pairSeparator, &status, '"', 0);
  for (const CString& pair : pairs) {
    const int at = pair.Find(keySeparator);
    if (at <= 0) continue;
    CString key = pair.Left(at);
    CString value = pair.Mid(at + 1);
    key.TrimLeft().TrimRight();
    value.TrimLeft().TrimRight();
    RYXmlWrapperBase child;
    node->AddTextNode(child, value, key, -1, 0, nullptr);
  }
  return node->GetNodeCount() > 0 ? 1 : 0;
}
