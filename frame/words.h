// Whole numbers of 32 bits, whose sums wrap around.
#pragma once

#include <cstdint>

/// The low 32 bits of a number.
inline int low_word(std::int64_t number) { return static_cast<int>(static_cast<std::uint32_t>(number)); }

inline int one_more(int number) { return low_word(std::int64_t{number} + 1); }
