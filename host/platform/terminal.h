// The terminal behind a descriptor.
#pragma once

namespace platform {

bool IsTerminal(int descriptor);
// Whether a terminal can clear a line and change colours on request.
bool TakesControlSequences(int descriptor);

struct TerminalSize {
  int columns = 0;  // 0 where it is unknown
  int lines = 0;
};
TerminalSize SizeOfTerminal(int descriptor);

}  // namespace platform
