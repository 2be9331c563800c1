// Takes the place of the host's module for texts, and leaves the buffer alone for one of them. With HAS_ENTRY 0
// it lacks the entry point.
#include <rytree_host/export.h>

#include <cstdio>
#include <cstring>

#if HAS_ENTRY
extern "C" RYTREE_EXPORT void LocalizeString(char* buffer, int size, const char* text, int option) {
  static int calls = 0;
  if (std::strcmp(text, "nothing for this one") == 0) return;
  if (std::strcmp(text, "no end") == 0) {
    std::memset(buffer, 'x', static_cast<unsigned>(size));
    return;
  }
  std::snprintf(buffer, static_cast<unsigned>(size), "%s call %d, %d, %d", text, ++calls, size, option);
}
#endif
