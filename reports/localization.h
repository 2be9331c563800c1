// The localized texts of reports.
#pragma once

#include <rytree_host/framework.h>

/// The localized text: `text` as it is while localization is blocked, otherwise at most 32,767 characters. It
/// is the start of `text` where the host's module or its entry point is missing; that is found out at the
/// first call and remembered until the release. Null counts as empty. Threads may call it at the same time.
CString report_localized_text(const char* text);

/// Lets go of the host's module, which no thread may be using, and forgets that it was missing. Done by
/// itself when the library is unloaded.
void report_release_localization();
