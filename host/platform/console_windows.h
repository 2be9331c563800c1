// The console, which the programs that are started after this one use too.
#pragma once

namespace platform {

// Gives the console back the character set and the modes that it had before Started.
void RestoreConsole();

}  // namespace platform
