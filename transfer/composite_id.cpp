#include "transfer/composite_id.h"

#include <rytree_Utils/transfer.h>

#include "frame/attributes.h"

int rytree_combine_treenode_id_with_repeat_id(RYXmlWrapperBase* node, int* id, int* repeatOut, int repeat) {
  if (node == nullptr) return 0;
  int no_id = -1;
  int no_repeat = 0;
  return combine_id(*node, RYPropertyName(kRepeatIdName), repeat, id != nullptr ? *id : no_id,
                    repeatOut != nullptr ? *repeatOut : no_repeat);
}

void report_conflict(int code, const RYXmlWrapperBase& node, int id, int repeat, CString* error) {
  if (error == nullptr) return;
  CString tag;
  CString label;
  node.GetTagName(tag);
  node.GetPropertyValue(kLabelName, label);
  const char* const tag_text = tag.GetString();
  const char* const label_text = label.GetString();
  if (code == -3) {
    error->Format("Repeat ID invalid for Node with Name = %s, Label = %s, Repeat ID = %d", tag_text,
                  label_text, repeat);
  } else if (code == -2) {
    error->Format("Repeat ID conflict for Node with Name = %s, Label = %s, Repeat ID = %d", tag_text,
                  label_text, repeat);
  } else {
    error->Format("DataID conflict with RepeatID for Node with Name = %s, Label = %s, Repeat ID = %d",
                  tag_text, label_text, id);
  }
}
