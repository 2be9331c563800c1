#include "platform/memory.h"

#include <cstdlib>

namespace platform {

// Huge pages are for programs with a right that few have.
void* AllocateHuge(std::size_t bytes) { return std::malloc(bytes); }

}  // namespace platform
