// The switch that blocks the localization of labels.
#include <rytree_Utils/localization.h>

#include <atomic>

#include "frame/flag.h"

namespace {

std::atomic<bool> blocked = false;

}  // namespace

extern "C" bool flagged_VCTreeAccessBlockLocalization(bool* value, Flag get) {
  if (value != nullptr && !is_set(get)) blocked = is_set(*value);
  const bool now = blocked;
  if (value != nullptr && is_set(get)) *value = now;
  return now;
}
[[gnu::alias("flagged_VCTreeAccessBlockLocalization")]] decltype(VCTreeAccessBlockLocalization)
    VCTreeAccessBlockLocalization;
