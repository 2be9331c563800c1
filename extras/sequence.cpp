#include "extras/sequence.h"

#include <algorithm>
#include <cstddef>

namespace rytree::detail {

std::vector<bool> in_order(const std::vector<int>& numbers) {
  if (std::is_sorted(numbers.begin(), numbers.end())) return std::vector<bool>(numbers.size(), true);
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::vector<std::size_t> ends;  // of the ascending runs of length 1, 2, …: where the lowest last number is
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
