#include "allocations.h"

#include <malloc.h>

#include <cerrno>
#include <cstddef>

namespace {

bool counting = false;
long long call_count = 0;
long long byte_count = 0;

long long block_bytes(void* block) {
  return block == nullptr ? 0 : static_cast<long long>(malloc_usable_size(block) + sizeof(std::size_t));
}

void* taken(void* block) {
  if (counting) {
    ++call_count;
    byte_count += block_bytes(block);
  }
  return block;
}

}  // namespace

AllocationCount::AllocationCount() {
  call_count = byte_count = 0;
  counting = true;
}
AllocationCount::~AllocationCount() { counting = false; }
long long AllocationCount::calls() const { return call_count; }
long long AllocationCount::bytes() const { return byte_count; }

// These replace the C library's functions, which they call, for the whole program with its shared libraries.
extern "C" {

void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);
void* __libc_memalign(std::size_t alignment, std::size_t bytes);
void __libc_free(void* block);

__attribute__((visibility("default"))) void* malloc(std::size_t bytes) { return taken(__libc_malloc(bytes)); }

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t bytes) {
  return taken(__libc_calloc(count, bytes));
}

__attribute__((visibility("default"))) void* realloc(void* block, std::size_t bytes) {
  if (counting) byte_count -= block_bytes(block);
  return taken(__libc_realloc(block, bytes));
}

__attribute__((visibility("default"))) void* aligned_alloc(std::size_t alignment, std::size_t bytes) {
  return taken(__libc_memalign(alignment, bytes));
}

__attribute__((visibility("default"))) int posix_memalign(void** block, std::size_t alignment,
                                                          std::size_t bytes) {
  *block = taken(__libc_memalign(alignment, bytes));
  return *block == nullptr ? ENOMEM : 0;
}

__attribute__((visibility("default"))) void free(void* block) {
  if (counting) byte_count -= block_bytes(block);
  __libc_free(block);
}
}
