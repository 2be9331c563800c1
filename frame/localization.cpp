// The switch that blocks the localization of labels.
#include <rytree_Utils/localization.h>

namespace {

bool blocked = false;

}  // namespace

bool VCTreeAccessBlockLocalization(bool* value, bool get) {
  if (value != nullptr && get) *value = blocked;
  if (value != nullptr && !get) blocked = *value;
  return blocked;
}
