// Which elements of two sequences correspond, and which have kept their order.
#pragma once

#include <utility>
#include <vector>

namespace rytree::detail {

/// A number, such as an ID, and where it is.
using Numbered = std::pair<int, int>;

/// The places of equal numbers: the first of a number on the left with the first on the right, the second
/// with the second, ascending by number. The places in each list ascend. O(n log n).
std::vector<std::pair<int, int>> match_equal(std::vector<Numbered> left, std::vector<Numbered> right);

/// Marks the members of a longest ascending subsequence of different numbers: the fewest that can be said to
/// have moved are the others. O(n log n), linear if all are in order.
std::vector<bool> in_order(const std::vector<int>& numbers);

}  // namespace rytree::detail
