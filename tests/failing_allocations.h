// Makes the n-th allocation of the whole program fail, and counts the blocks and bytes in use. To be included by one source of a
// program with one thread: it replaces malloc and its relatives, from which all others take their memory, those of the
// shared libraries too.
#pragma once

#include <malloc.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <new>

extern "C" {
// What is replaced, under its other name.
void* real_malloc(std::size_t bytes) __asm__(REAL_ALLOCATION "malloc");
void* real_calloc(std::size_t count, std::size_t bytes) __asm__(REAL_ALLOCATION "calloc");
void* real_realloc(void* block, std::size_t bytes) __asm__(REAL_ALLOCATION "realloc");
void* real_memalign(std::size_t step, std::size_t bytes) __asm__(REAL_ALLOCATION "memalign");
void real_free(void* block) __asm__(REAL_ALLOCATION "free");
}

/// While it lives, the allocation number `which` from now fails, with `onwards` all later ones too.
class FailingAllocations {
 public:
  FailingAllocations(long which, bool onwards) {
    left_ = which;
    onwards_ = onwards;
    failed_ = 0;
  }
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;
  ~FailingAllocations() { left_ = 0; }

  /// How many have failed since the last was made.
  static long failed() { return failed_; }
  /// How many blocks the program has.
  static long blocks() { return blocks_; }
  /// Starts to count the bytes of the blocks that come and go.
  static void count_bytes() {
    counts_bytes_ = true;
    bytes_ = most_bytes_ = 0;
  }
  /// The most that there were since then, beyond those at the start.
  static long most_bytes() { return most_bytes_; }

  static bool fails() {
    if (left_ == 0 || --left_ != 0) return false;
    if (onwards_) left_ = 1;
    ++failed_;
    errno = ENOMEM;
    return true;
  }
  static void* count(void* block) {
    if (block != nullptr) ++blocks_;
    add_bytes(size_of(block));
    return block;
  }
  static void free(void* block) {
    if (block != nullptr) --blocks_;
    add_bytes(-size_of(block));
    real_free(block);
  }
  static void* resize(void* block, std::size_t bytes) {
    const long former = size_of(block);
    void* const resized = real_realloc(block, bytes);
    if (resized != nullptr) add_bytes(size_of(resized) - former);
    return resized;
  }

 private:
  static long size_of(void* block) {
    return counts_bytes_ ? static_cast<long>(malloc_usable_size(block)) : 0;
  }
  static void add_bytes(long bytes) {
    bytes_ += bytes;
    // Not by std::max: the address sanitizer would look at its references, before it is ready for that.
    if (bytes_ > most_bytes_) most_bytes_ = bytes_;
  }

  static inline constinit long left_ = 0;  // allocations until the one that fails; 0: none does
  static inline constinit bool onwards_ = false;
  static inline constinit long failed_ = 0;
  static inline constinit long blocks_ = 0;
  static inline constinit bool counts_bytes_ = false;
  static inline constinit long bytes_ = 0;
  static inline constinit long most_bytes_ = 0;
};

// One source alone includes this, so there is one definition of each.
// NOLINTBEGIN(misc-definitions-in-headers)
extern "C" {
[[gnu::visibility("default")]] void* malloc(std::size_t bytes) noexcept {
  return FailingAllocations::fails() ? nullptr : FailingAllocations::count(real_malloc(bytes));
}
[[gnu::visibility("default")]] void* calloc(std::size_t count, std::size_t bytes) noexcept {
  return FailingAllocations::fails() ? nullptr : FailingAllocations::count(real_calloc(count, bytes));
}
[[gnu::visibility("default")]] void* realloc(void* block, std::size_t bytes) noexcept {
  if (block == nullptr) return malloc(bytes);
  if (bytes == 0) return FailingAllocations::free(block), nullptr;
  return FailingAllocations::fails() ? nullptr : FailingAllocations::resize(block, bytes);
}
[[gnu::visibility("default")]] void* aligned_alloc(std::size_t step, std::size_t bytes) noexcept {
  return FailingAllocations::fails() ? nullptr : FailingAllocations::count(real_memalign(step, bytes));
}
[[gnu::visibility("default")]] int posix_memalign(void** block, std::size_t step,
                                                  std::size_t bytes) noexcept {
  void* const made = aligned_alloc(step, bytes);
  if (made == nullptr) return ENOMEM;
  *block = made;
  return 0;
}
[[gnu::visibility("default")]] void free(void* block) noexcept { FailingAllocations::free(block); }
}

// The sanitizers' own do not come here.
[[gnu::visibility("default")]] void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return malloc(bytes);
}
[[gnu::visibility("default")]] void* operator new(std::size_t bytes) {
  void* const block = malloc(bytes);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}
[[gnu::visibility("default")]] void* operator new[](std::size_t bytes) { return operator new(bytes); }
[[gnu::visibility("default")]] void operator delete(void* block) noexcept { free(block); }
[[gnu::visibility("default")]] void operator delete(void* block, std::size_t) noexcept { free(block); }
[[gnu::visibility("default")]] void operator delete[](void* block) noexcept { free(block); }
[[gnu::visibility("default")]] void operator delete[](void* block, std::size_t) noexcept { free(block); }
// NOLINTEND(misc-definitions-in-headers)
