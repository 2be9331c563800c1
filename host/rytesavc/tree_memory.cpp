#include "rytree_host/detail/tree_memory.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "platform/memory.h"

namespace rytesavc {

namespace {

constexpr std::size_t kLeast = 3072;
using platform::kHugePage;
constexpr std::size_t kMostReserved = std::size_t{1} << 30;
constexpr std::size_t kMostExpected = std::size_t{1} << 40;

constexpr std::size_t RoundUp(std::size_t bytes, std::size_t step) {
  return (bytes + step - 1) / step * step;
}

void* OrThrow(void* block) {
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void* AllocateOrThrow(std::size_t bytes) { return OrThrow(std::malloc(bytes)); }

// Big chunks are huge pages where the platform has them: without, a large tree spends a third of its time on
// page faults.
void* AllocateChunk(std::size_t bytes) {
  return bytes < kHugePage ? AllocateOrThrow(bytes) : OrThrow(platform::AllocateHuge(bytes));
}

template <class Block>
void FreeAll(Block* first) {
  while (first != nullptr) {
    Block* const next = first->next;
    std::free(first);
    first = next;
  }
}

}  // namespace

TreeMemory::~TreeMemory() {
  FreeAll(chunks_);
  FreeAll(large_);
}

void TreeMemory::Reserve(std::size_t bytes) {
  if (!HasRoom(bytes)) AddChunk(std::min(RoundUp(bytes, kStep), kMostReserved));
}

void TreeMemory::ExpectWhole(unsigned long long part, unsigned long long whole) {
  constexpr double kMargin = 1.01;
  const std::size_t used = bytes_ - static_cast<std::size_t>(room_end_ - room_);
  const double wanted =
      kMargin * static_cast<double>(used) * static_cast<double>(whole) / static_cast<double>(part);
  expected_ = wanted < static_cast<double>(kMostExpected) ? static_cast<std::size_t>(wanted) : 0;
}

// Grows to the expected size, but at most doubles. Without one it grows by a quarter, at most by a huge page.
void TreeMemory::AddChunkFor(std::size_t bytes) {
  const std::size_t step =
      expected_ > bytes_ ? std::min(expected_ - bytes_, bytes_) : std::min(bytes_ / 4, kHugePage);
  AddChunk(RoundUp(std::max({step, kLeast, sizeof(Chunk) + bytes}), kStep));
}

// In front of a larger block that is free, whose rest stays free; without one, in a new chunk.
void* TreeMemory::NewBlockElsewhere(std::size_t bytes) {
  for (std::size_t larger = bytes + kStep; larger <= kLargest; larger += kStep) {
    if (free_blocks_[Steps(larger)] == nullptr) continue;
    char* const block = static_cast<char*>(Allocate(larger));
    Deallocate(block + bytes, larger - bytes);
    return block;
  }
  AddChunkFor(bytes);
  return room_end_ -= bytes;
}

void TreeMemory::AddChunk(std::size_t bytes) {
  char* const block = static_cast<char*>(AllocateChunk(bytes));
  chunks_ = new (block) Chunk{chunks_, bytes};
  bytes_ += bytes;
  room_ = block + sizeof(Chunk);
  room_end_ = block + bytes;
}

void* TreeMemory::AllocateLarge(std::size_t bytes) {
  Large* const large = static_cast<Large*>(AllocateOrThrow(sizeof(Large) + bytes));
  large->next = large_;
  large->link = &large_;
  large->bytes = bytes;
  if (large_ != nullptr) large_->link = &large->next;
  large_ = large;
  bytes_ += bytes;
  return large + 1;
}

void TreeMemory::DeallocateLarge(void* block, std::size_t bytes) {
  Large* const large = static_cast<Large*>(block) - 1;
  *large->link = large->next;
  if (large->next != nullptr) large->next->link = large->link;
  std::free(large);
  bytes_ -= bytes;
}

}  // namespace rytesavc
