#include "terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace {

std::string_view environment(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

}  // namespace

Terminal Terminal::of(int descriptor) {
  Terminal terminal;
  if (isatty(descriptor) == 0) return terminal;
  terminal.plain = environment("TERM") == "dumb";
  terminal.colour = !terminal.plain && environment("NO_COLOR").empty();
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) != 0) return terminal;
  if (size.ws_col > 0) terminal.columns = std::max<int>(size.ws_col, 40);
  terminal.lines = size.ws_row;
  return terminal;
}

Terminal Terminal::of_standard_output() { return of(STDOUT_FILENO); }
