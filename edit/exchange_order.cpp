#include "edit/exchange_order.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <span>

namespace {

/// Counts at places, with their sums (a binary indexed tree).
class Counts {
 public:
  explicit Counts(std::size_t size) : sums_(size + 1) {}

  static Counts of_ones(std::size_t size) {
    Counts ones(size);
    for (std::size_t at = 1; at <= size; ++at) ones.sums_[at] = static_cast<int>(at & (~at + 1));
    return ones;
  }

  void add(std::size_t place, int amount) {
    for (std::size_t at = place + 1; at < sums_.size(); at += at & (~at + 1)) sums_[at] += amount;
  }
  int before(std::size_t place) const {
    int sum = 0;
    for (std::size_t at = place; at > 0; at &= at - 1) sum += sums_[at];
    return sum;
  }
  /// Of places with counts of 1 or 0, the one with a 1 that has `rank` ones before it.
  std::size_t find(int rank) const {
    std::size_t at = 0;
    for (std::size_t step = std::bit_floor(sums_.size() - 1); step > 0; step /= 2) {
      if (at + step < sums_.size() && sums_[at + step] <= rank) {
        at += step;
        rank -= sums_[at];
      }
    }
    return at;
  }

 private:
  std::vector<int> sums_;
};

/// Puts the elements of one key, given in their first order, into their final one. `joined[k]` is the pass
/// after which element k joins the run, `passes` the number of all passes. It works backwards from the end:
/// the final places form a circle, which loses the run's last element and then turns back by the passes since
/// the element before that one joined.
void order_run(std::span<int> elements, const std::vector<int>& joined, int passes) {
  const std::vector<int> first_order(elements.begin(), elements.end());
  Counts places = Counts::of_ones(elements.size());
  int first = 0;  // the rank of the run's first element among the places that are left
  int pass = passes;
  for (int count = static_cast<int>(elements.size()); count > 0; --count) {
    const auto last = static_cast<std::size_t>(count) - 1;
    first = (first + count - (pass - joined[last]) % count) % count;
    pass = joined[last];
    const int rank = (first + count - 1) % count;
    const std::size_t place = places.find(rank);
    elements[place] = first_order[last];
    places.add(place, -1);
    if (rank < first) --first;
  }
}

/// The elements by key, those of one key in their first order. Long lists are sorted by radix, so that each
/// element costs the same.
std::vector<int> stable_order(const std::vector<int>& keys, bool ascending) {
  constexpr int kDigitBits = 11;
  constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
  constexpr std::uint32_t kSign = 0x80000000U;
  const auto rank = [&](int element) {
    const std::uint32_t key = static_cast<std::uint32_t>(keys[static_cast<std::size_t>(element)]) ^ kSign;
    return ascending ? key : ~key;
  };
  std::vector<int> order(keys.size());
  std::iota(order.begin(), order.end(), 0);
  if (keys.size() < kDigits / 4) {
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return rank(a) < rank(b); });
    return order;
  }
  std::vector<int> sorted(keys.size());
  for (int shift = 0; shift < 32; shift += kDigitBits) {
    const auto digit = [&](int element) { return (rank(element) >> shift) % kDigits; };
    std::vector<std::size_t> place(kDigits + 1);
    for (const int element : order) ++place[digit(element) + 1];
    std::partial_sum(place.begin(), place.end(), place.begin());
    for (const int element : order) sorted[place[digit(element)]++] = element;
    order.swap(sorted);
  }
  return order;
}

}  // namespace

std::vector<int> exchange_sort_order(const std::vector<int>& keys, bool ascending) {
  std::vector<int> order = stable_order(keys, ascending);
  const auto key = [&](std::size_t place) { return keys[static_cast<std::size_t>(order[place])]; };
  bool all_differ = true;
  for (std::size_t i = 1; i < order.size() && all_differ; ++i) all_differ = key(i - 1) != key(i);
  if (all_differ) return order;

  Counts smaller(order.size());  // the elements of the keys done so far, at their first places
  std::vector<int> joined;
  for (std::size_t begin = 0, end = 0; begin < order.size(); begin = end) {
    joined.clear();
    for (; end < order.size() && key(end) == key(begin); ++end) {
      joined.push_back(smaller.before(static_cast<std::size_t>(order[end])));
    }
    for (std::size_t i = begin; i < end; ++i) smaller.add(static_cast<std::size_t>(order[i]), 1);
    if (end - begin > 1)
      order_run(std::span(order).subspan(begin, end - begin), joined, static_cast<int>(begin));
  }
  return order;
}
