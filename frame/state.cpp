// What the library keeps between calls: the flag that blocks the localization and the host's word for a
// range.
#include "frame/state.h"

#include <rytree_Utils/frame.h>
#include <rytree_host/ryUtils.h>

namespace {

constexpr int kRangeLabelMessage = 1996;

bool localization_blocked = false;
CString range_label;

}  // namespace

bool VCTreeAccessBlockLocalization(bool* value, bool get) {
  if (value != nullptr && get) *value = localization_blocked;
  if (value != nullptr && !get) localization_blocked = *value;
  return localization_blocked;
}

const char* VCTreeRangeLabelText() {
  if (range_label.IsEmpty()) ryu_load_err_msg_str(kRangeLabelMessage, &range_label, -1);
  return range_label.GetString();
}
