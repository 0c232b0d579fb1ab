// Counts of headers that are stored as reals.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <limits>

namespace velmorankite {

// The integer part of a count; 0, which no count may be, for what is no integer of 32 bits.
[[nodiscard]] inline std::int32_t integer_part(double value) noexcept {
  constexpr double lowest = std::numeric_limits<std::int32_t>::min();
  constexpr double highest = std::numeric_limits<std::int32_t>::max();
  return value >= lowest && value <= highest ? static_cast<std::int32_t>(value) : 0;
}

}  // namespace velmorankite
