// The order in which an exchange sort leaves its elements.
#pragma once

#include <vector>

/// For each place the index of the element that is there after
///     for i, for j > i: if (keys[i] > keys[j]) exchange i and j
/// with < for descending order. O(n log n).
///
/// Pass i takes the first smallest element to place i and shifts the chain of prefix minima before it by one:
/// each moves to the place of the next smaller one. Take any element e: each pass moves the smallest of the
/// elements before it past e or to its final place. So after as many passes as there were smaller elements
/// before e, nothing smaller is before it. The elements of one key that have come so far form a run
/// at the front (leaving out greater ones). In each pass the run's first element moves to its end, and the
/// elements that then have nothing smaller before them join after it. The order of the run after as many
/// passes as there are smaller elements is the final order of the key's elements. For the keys 2a 2b 1 2c:
///     2a 2b 1 2c      only 2c has a smaller one before it: the run is 2a 2b
///     1 2b 2a 2c      after pass 0: 2a has moved to the end of the run, 2c has joined: the final order
std::vector<int> exchange_sort_order(const std::vector<int>& keys, bool ascending);
