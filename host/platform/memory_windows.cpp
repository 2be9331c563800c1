#include "platform/memory.h"

#include <cstdlib>

namespace platform {

// Huge pages need a privilege that few programs have.
void* AllocateHuge(std::size_t bytes) { return std::malloc(bytes); }

}  // namespace platform
