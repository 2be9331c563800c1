// What the node of a numbered range is called.
#pragma once

#include <rytree_host/framework.h>

#include "frame/range_label.h"

inline CString range_tag(int number) {
  CString tag;
  tag.Format("%s%d", "Range", number);
  return tag;
}

inline CString range_label(int number) {
  CString label;
  label.Format("%s %d", VCTreeRangeLabelText(), number);
  return label;
}
