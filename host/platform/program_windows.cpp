#include "platform/program.h"

#include "platform/windows.h"

// After windows.h, which it needs.
#include <shellapi.h>

namespace platform {

std::vector<std::string> Started(int /*count*/, char** /*words*/) {
  for (const int descriptor : {0, 1, 2}) _setmode(descriptor, _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> words;
  for (int i = 1; wide != nullptr && i < count; ++i) words.push_back(Narrow(wide[i]));
  LocalFree(wide);
  return words;
}

}  // namespace platform
