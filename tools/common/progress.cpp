#include "progress.h"

#include <iostream>

#include "columns.h"
#include "platform/paths.h"
#include "platform/streams.h"
#include "streams.h"
#include "terminal.h"

Progress::Progress(const char* program, int stages)
    : program_(program), stages_(stages), columns_(Terminal::of(platform::kStandardError).clear_columns()) {}

void Progress::stage(const std::string& name) {
  ++stage_;
  if (columns_ == 0) return;
  const std::string text = std::string(program_) + ": " + std::to_string(stage_) + " of " +
                           std::to_string(stages_) + ", " + name + " …";
  clear();
  std::cerr << Cell(text).fit(columns_ - 1) << std::flush;
}

void Progress::reading(const std::string& file) {
  constexpr std::uintmax_t kTold = 1000000;  // smaller files are read at once
  const std::uintmax_t size = platform::SizeOf(file);
  stage("reading " + shown_input(file) + (size >= kTold ? " (" + std::to_string(size / kTold) + " MB)" : ""));
}

void Progress::clear() const {
  if (columns_ > 0) std::cerr << "\r\033[K" << std::flush;
}
