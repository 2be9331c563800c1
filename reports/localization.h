// The localized texts of reports.
#pragma once

/// The localized text: `text` itself while localization is blocked, else a buffer that the next call
/// overwrites, with at most 32,767 characters. It holds `text` where the host's module or its entry point is
/// missing; that is found out at the first call and remembered until the release.
const char* report_localized_text(const char* text);

/// Lets go of the host's module and forgets that it was missing. Done by itself when the library is unloaded.
void report_release_localization();
