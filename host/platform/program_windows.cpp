#include "platform/program.h"

#include <array>
#include <cstdlib>
#include <optional>

#include "platform/console_windows.h"
#include "platform/windows.h"

// After windows.h, which it needs.
#include <shellapi.h>

namespace platform {

namespace {

struct Stream {
  DWORD number;
  std::optional<DWORD> former_mode;  // of the console behind it
};
std::array<Stream, 2> streams = {Stream{STD_OUTPUT_HANDLE, {}}, Stream{STD_ERROR_HANDLE, {}}};
UINT former_page = 0;  // 0: it was not changed

// The console calls this on Ctrl-C, and then ends the program.
BOOL WINAPI RestoreBeforeEnd(DWORD /*event*/) {
  RestoreConsole();
  return FALSE;
}

// A program that prints into a pipe leaves the console alone: the program that reads the pipe may change it too, and the
// one that ends last would put back what the other had set.
void PrepareConsole() {
  if (GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) == FILE_TYPE_PIPE) return;
  for (Stream& stream : streams) {
    DWORD mode = 0;
    if (GetConsoleMode(GetStdHandle(stream.number), &mode) != 0) stream.former_mode = mode;
  }
  former_page = GetConsoleOutputCP();
  std::atexit(RestoreConsole);
  SetConsoleCtrlHandler(RestoreBeforeEnd, TRUE);
  SetConsoleOutputCP(CP_UTF8);
}

}  // namespace

void RestoreConsole() {
  for (const Stream& stream : streams) {
    if (stream.former_mode) SetConsoleMode(GetStdHandle(stream.number), *stream.former_mode);
  }
  if (former_page != 0) SetConsoleOutputCP(former_page);
}

std::vector<std::string> Started(int /*count*/, char** /*words*/) {
  for (const int descriptor : {0, 1, 2}) _setmode(descriptor, _O_BINARY);
  PrepareConsole();
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> words;
  for (int i = 1; wide != nullptr && i < count; ++i) words.push_back(Narrow(wide[i]));
  LocalFree(wide);
  return words;
}

}  // namespace platform
