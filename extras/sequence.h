// Which elements of a sequence have kept their order.
#pragma once

#include <vector>

namespace rytree::detail {

/// Marks the members of a longest ascending subsequence of different numbers: the fewest that can be said to have
/// moved are the others. O(n log n), linear if all are in order.
std::vector<bool> in_order(const std::vector<int>& numbers);

}  // namespace rytree::detail
