// Large pieces of memory.
#pragma once

#include <cstddef>

namespace platform {

// The size of a huge page.
inline constexpr std::size_t kHugePage = std::size_t{1} << 21;

// Memory of at least a huge page, made of huge pages where the system has them for everybody. Null where
// there is none. It is released by std::free.
void* AllocateHuge(std::size_t bytes);

}  // namespace platform
