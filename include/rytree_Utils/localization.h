// The switch that blocks the localization of labels.
#pragma once

#include <rytree_host/node.h>

/// Reads or sets the flag that blocks the localization of labels; while it is true they stay in their source
/// text. One flag for the process, false at the start: a change by one thread affects the labels of
/// all. `get` true stores it in `value`, `get` false sets it from there; a null `value` does neither. The result is the
/// flag after the call.
RYTREE_API bool VCTreeAccessBlockLocalization(bool* value, bool get);
