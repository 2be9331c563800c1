// Counts what the program asks the allocator for.
#pragma once

/// Counts from its making on, through every way to allocate. One at a time.
class AllocationCount {
 public:
  AllocationCount();
  AllocationCount(const AllocationCount&) = delete;
  AllocationCount& operator=(const AllocationCount&) = delete;
  ~AllocationCount();

  long long calls() const;
  /// Taken and not given back so far, with the allocator's own head of each block.
  long long bytes() const;
};
