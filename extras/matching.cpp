#include "extras/matching.h"

#include <algorithm>
#include <cstddef>

namespace rytree::detail {

std::vector<std::pair<int, int>> match_equal(std::vector<Numbered> left, std::vector<Numbered> right) {
  std::sort(left.begin(), left.end());
  std::sort(right.begin(), right.end());
  std::vector<std::pair<int, int>> matches;
  auto left_at = left.begin();
  auto right_at = right.begin();
  while (left_at != left.end() && right_at != right.end()) {
    if (left_at->first == right_at->first) {
      matches.emplace_back((left_at++)->second, (right_at++)->second);
    } else if (left_at->first < right_at->first) {
      ++left_at;
    } else {
      ++right_at;
    }
  }
  return matches;
}

std::vector<bool> in_order(const std::vector<int>& numbers) {
  if (std::is_sorted(numbers.begin(), numbers.end())) return std::vector<bool>(numbers.size(), true);
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::vector<std::size_t> ends;  // of ascending runs of length 1, 2, …: where the lowest last number is
  std::vector<std::size_t> before(numbers.size(), kNone);  // the number before, in the run that ends here
  for (std::size_t at = 0; at < numbers.size(); ++at) {
    const auto longer = std::lower_bound(ends.begin(), ends.end(), numbers[at],
                                         [&](std::size_t end, int number) { return numbers[end] < number; });
    if (longer != ends.begin()) before[at] = *(longer - 1);
    if (longer == ends.end()) {
      ends.push_back(at);
    } else {
      *longer = at;
    }
  }
  std::vector<bool> kept(numbers.size(), false);
  for (std::size_t at = ends.back(); at != kNone; at = before[at]) kept[at] = true;
  return kept;
}

}  // namespace rytree::detail
