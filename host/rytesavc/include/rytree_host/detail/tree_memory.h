// The memory of one tree: chunks that are freed whole with it.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

namespace rytesavc {

// Hands out slots, which are never given back, and blocks, which can be. Slots fill a chunk from the front
// and blocks from the back, so that the slots lie side by side.
class TreeMemory {
 public:
  // The first chunk belongs to the caller.
  TreeMemory(char* first_chunk, char* end)
      : room_(first_chunk), room_end_(end), bytes_(static_cast<std::size_t>(end - first_chunk)) {}
  TreeMemory(const TreeMemory&) = delete;
  TreeMemory& operator=(const TreeMemory&) = delete;
  ~TreeMemory();

  void* NewSlot(std::size_t bytes) {
    if (!HasRoom(bytes)) AddChunkFor(bytes);
    void* const slot = room_;
    room_ += bytes;
    return slot;
  }

  void* Allocate(std::size_t bytes) {
    if (bytes > kLargest) return AllocateLarge(bytes);
    void*& free_block = free_blocks_[Steps(bytes)];
    if (free_block == nullptr) return NewBlock(Steps(bytes) * kStep);
    void* const block = free_block;
    std::memcpy(&free_block, block, sizeof free_block);
    return block;
  }
  // `block` may be null. `bytes` is what it was allocated with.
  void Deallocate(void* block, std::size_t bytes) {
    if (block == nullptr) return;
    if (bytes > kLargest) return DeallocateLarge(block, bytes);
    void*& free_block = free_blocks_[Steps(bytes)];
    std::memcpy(block, &free_block, sizeof free_block);
    free_block = block;
    has_freed_ = true;
  }
  // How large to make a block that needs so many bytes. Where blocks come and go there are four sizes from each power
  // of two to the next, so that few are free that fit nothing; before that, as in a load, no byte is given away.
  std::size_t RoomFor(std::size_t bytes) const {
    if (bytes > kLargest) return bytes;
    if (!has_freed_ || free_blocks_[Steps(bytes)] != nullptr) return Steps(bytes) * kStep;
    const std::size_t step = (std::max)(kStep, std::bit_floor(bytes) / 4);
    return (bytes + step - 1) / step * step;
  }
  // Twice the size, for a block that has become too small; but blocks outside the chunks need no room to
  // grow.
  static std::size_t Doubled(std::size_t bytes) {
    return bytes < kLargest ? (std::min)(2 * bytes, kLargest) : 0;
  }
  // Whether a block can be allocated without a new chunk.
  bool Holds(std::size_t bytes) const {
    return bytes > kLargest || free_blocks_[Steps(bytes)] != nullptr || HasRoom(Steps(bytes) * kStep);
  }
  // Whether blocks come and go.
  bool has_freed() const { return has_freed_; }
  // Whether there are blocks outside the chunks, which go back to the system when they are freed.
  bool has_large_blocks() const { return large_ != nullptr; }

  // Makes room for about so many bytes.
  void Reserve(std::size_t bytes);
  // Says that `part` of `whole` has been read so far, so that the next chunk is large enough for the rest.
  // `part` is above 0.
  void ExpectWhole(unsigned long long part, unsigned long long whole);
  // The size of all chunks and large blocks.
  std::size_t bytes() const { return bytes_; }

 private:
  friend class SoundnessCheck;
  struct Chunk {
    Chunk* next;
    std::size_t bytes;  // with this head
  };
  struct Large {
    Large* next;
    Large** link;  // what points here
    std::size_t bytes;
    std::size_t unused;  // keeps what follows on a 16-byte boundary
  };
  static constexpr std::size_t kStep = 8;
  static constexpr std::size_t kLargest = 512;  // longer blocks are outside the chunks

  static std::size_t Steps(std::size_t bytes) { return (bytes + kStep - 1) / kStep; }
  bool HasRoom(std::size_t bytes) const { return static_cast<std::size_t>(room_end_ - room_) >= bytes; }
  void* NewBlock(std::size_t bytes) { return HasRoom(bytes) ? room_end_ -= bytes : NewBlockElsewhere(bytes); }
  void* NewBlockElsewhere(std::size_t bytes);
  void AddChunkFor(std::size_t bytes);
  void AddChunk(std::size_t bytes);
  void* AllocateLarge(std::size_t bytes);
  void DeallocateLarge(void* block, std::size_t bytes);

  char* room_;  // of the newest chunk
  char* room_end_;
  std::size_t bytes_;
  std::size_t expected_ = 0;  // the size of the whole in the end; 0: not known
  Chunk* chunks_ = nullptr;
  Large* large_ = nullptr;
  bool has_freed_ = false;  // a block that was not large
  void* free_blocks_[kLargest / kStep + 1] = {};
};

}  // namespace rytesavc
