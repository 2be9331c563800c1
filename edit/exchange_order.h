// The order in which an exchange sort leaves its elements.
#pragma once

#include <vector>

/// For each place the index of the element that stands there after
///     for i, for j > i: if (keys[i] > keys[j]) exchange i and j
/// with < for descending order. O(n log n).
///
/// Pass i takes the first smallest element to place i and shifts the chain of prefix minima before it by one:
/// each moves to the place of the next smaller one. Seen from an element e, every pass takes the smallest of
/// those before it away: behind e, or to its final place. So after as many passes as there were smaller
/// elements before it, nothing smaller is ahead of e. The elements of one key that have come so far form a
/// run at the front (greater ones aside). In each pass the run's first element moves to its end, and the
/// elements that then have nothing smaller ahead join behind it. The order of the run after as many passes as
/// there are smaller elements is the final order of the key's elements.
std::vector<int> exchange_sort_order(const std::vector<int>& keys, bool ascending);
