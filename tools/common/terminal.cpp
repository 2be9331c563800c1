#include "terminal.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/streams.h"
#include "platform/terminal.h"

namespace {

std::string_view environment(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

}  // namespace

Terminal Terminal::of(int descriptor) {
  Terminal terminal;
  if (!platform::IsTerminal(descriptor)) return terminal;
  terminal.plain = !platform::TakesControlSequences(descriptor);
  terminal.colour = !terminal.plain && environment("NO_COLOR").empty();
  const platform::TerminalSize size = platform::SizeOfTerminal(descriptor);
  if (size.columns > 0) terminal.columns = std::max(size.columns, 40);
  terminal.lines = size.lines;
  return terminal;
}

Terminal Terminal::of_standard_output() { return of(platform::kStandardOutput); }
