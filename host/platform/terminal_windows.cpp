#include "platform/terminal.h"

#include "platform/windows.h"

namespace platform {

namespace {

// NOLINTNEXTLINE(performance-no-int-to-ptr): the system gives it as a number
HANDLE HandleOf(int descriptor) { return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)); }

}  // namespace

bool IsTerminal(int descriptor) {
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(descriptor), &mode) != 0;
}

bool TakesControlSequences(int descriptor) {
  constexpr DWORD kSequences = 4;  // ENABLE_VIRTUAL_TERMINAL_PROCESSING, since Windows 10
  DWORD mode = 0;
  return GetConsoleMode(HandleOf(descriptor), &mode) != 0 &&
         SetConsoleMode(HandleOf(descriptor), mode | kSequences) != 0;
}

TerminalSize SizeOfTerminal(int descriptor) {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (GetConsoleScreenBufferInfo(HandleOf(descriptor), &info) == 0) return {};
  return {info.srWindow.Right - info.srWindow.Left + 1, info.srWindow.Bottom - info.srWindow.Top + 1};
}

}  // namespace platform
