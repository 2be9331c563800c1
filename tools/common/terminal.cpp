#include "terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

Terminal Terminal::of_standard_output() {
  Terminal terminal;
  if (isatty(STDOUT_FILENO) == 0) return terminal;
  const char* const no_colour = std::getenv("NO_COLOR");
  terminal.colour = no_colour == nullptr || *no_colour == '\0';
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) return terminal;
  if (size.ws_col > 0) terminal.columns = std::max<int>(size.ws_col, 40);
  terminal.lines = size.ws_row;
  return terminal;
}
