#include "rows.h"

#include "failure.h"

DWORD row_flags(const Arguments& arguments) {
  DWORD flags = arguments.has("--branches") ? kNodeBranchesOnly : 0;
  if (arguments.has("--level")) {
    const int level = arguments.number("--level");
    if (level < 1 || level > static_cast<int>(kNodeLevelMask) + 1) throw Failure("--level is 1 to 256");
    flags |= kNodeLimitLevel | static_cast<DWORD>(level - 1);
  }
  return flags;
}
