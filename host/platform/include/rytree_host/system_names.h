// The names of the host that some systems have themselves. The host's own are in the namespace rytree_host on
// every system, and global only where the system has none: so <windows.h> may be included before or after.
#pragma once

#include "rytree_host/modules.h"
#include "rytree_host/multibyte.h"

#ifndef _WIN32
using rytree_host::FARPROC;
using rytree_host::FreeLibrary;
using rytree_host::GetProcAddress;
using rytree_host::HMODULE;
using rytree_host::LoadLibraryA;
using rytree_host::lstrcmpA;
using rytree_host::lstrcmpiA;
using rytree_host::lstrcpynA;
using rytree_host::lstrlenA;
#endif
