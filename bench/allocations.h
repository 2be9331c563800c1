// Counts what the program asks the allocator for.
#pragma once

/// Counts from the moment it is made, whatever function allocates. Only one may exist at a time.
class AllocationCount {
 public:
  AllocationCount();
  AllocationCount(const AllocationCount&) = delete;
  AllocationCount& operator=(const AllocationCount&) = delete;
  ~AllocationCount();

  /// How often memory was asked for.
  long long calls() const;
  /// Taken and not given back so far, including the allocator's header of each block.
  long long bytes() const;
};
