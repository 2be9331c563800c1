#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace platform {

bool IsTerminal(int descriptor) { return isatty(descriptor) != 0; }

bool TakesControlSequences(int /*descriptor*/) {
  const char* const kind = std::getenv("TERM");
  return kind == nullptr || std::string_view(kind) != "dumb";
}

TerminalSize SizeOfTerminal(int descriptor) {
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) != 0) return {};
  return {size.ws_col, size.ws_row};
}

}  // namespace platform
