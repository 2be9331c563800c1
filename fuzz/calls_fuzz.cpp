// A program of calls of exports and node operations on a handful of trees, handles, arrays and strings. After each call
// every tree must be sound, and small ones must come back from their XML text.
#include <cstdint>

#include "fuzz/calls/call.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  calls::run_program({reinterpret_cast<const char*>(data), size});
  return 0;
}
