#include <windows.h>

#include <comutil.h>

// After them.
#include <rytree_Utils.h>

#include "system/names_windows.h"

void use_shared_names_after_system();

void use_shared_names_after_system() { use_shared_names(); }
