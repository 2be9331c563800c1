// The double that stands for no value.
#pragma once

#include <bit>
#include <cstdint>

/// Marks a double without a value, in fit parameters and statistics alike. Written and read like any other
/// double.
inline constexpr double kMissingValue = -1.23456789e-300;
static_assert(std::bit_cast<std::uint64_t>(kMissingValue) == 0x81AA74FE1C132C0E);
