#include "platform/memory.h"

#include <sys/mman.h>

#include <cstdlib>

namespace platform {

void* AllocateHuge(std::size_t bytes) {
  void* block = nullptr;
  if (posix_memalign(&block, kHugePage, bytes) != 0) return nullptr;
  madvise(block, bytes, MADV_HUGEPAGE);
  return block;
}

}  // namespace platform
