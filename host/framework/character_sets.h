// Character sets by name.
#pragma once

#include "platform/code_pages.h"
#include "rytree_host/export.h"

/// Sets of one byte are the same on every system, others are the system's. Bytes below 0x80 are ASCII in all of them.
/// Null for a set that is not known.
RYFRAMEWORK_API std::unique_ptr<platform::CharacterSet> OpenCharacterSet(std::string_view name);
