// Types of the node class's arguments that some systems have themselves. There they are the system's own.
#pragma once

#ifdef _WIN32

using DWORD = unsigned long;
class _variant_t;  // complete after <rytree_host/variant.h>

#else

#include <cstdint>

#include "rytree_host/variant.h"

using DWORD = std::uint32_t;

#endif
