// The host's word for a range.
#include "frame/range_label.h"

#include <rytree_host/framework.h>
#include <rytree_host/ryUtils.h>

namespace {

constexpr int kRangeLabelMessage = 1996;

CString range_label;

}  // namespace

const char* VCTreeRangeLabelText() {
  if (range_label.IsEmpty()) ryu_load_err_msg_str(kRangeLabelMessage, &range_label, -1);
  return range_label.GetString();
}
