// The library's header before those of the system.
#include <rytree_Utils.h>

// After it.
#include <windows.h>

#include <comutil.h>

#include "system/names_windows.h"

/// The same in a source where they come in the other order.
void use_shared_names_after_system();

TEST(SharedNames, AreTwoInEitherOrder) {
  use_shared_names();
  use_shared_names_after_system();
}
