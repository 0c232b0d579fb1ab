// Counts and limits as headers tell them, made those of the description.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <limits>

#include "grid/grid_record.h"

namespace velmorankite {

// The integer part of a count; 0, which no count may be, for what is no integer of 32 bits.
[[nodiscard]] inline std::int32_t integer_part(double value) noexcept {
  constexpr double lowest = std::numeric_limits<std::int32_t>::min();
  constexpr double highest = std::numeric_limits<std::int32_t>::max();
  return value >= lowest && value <= highest ? static_cast<std::int32_t>(value) : 0;
}

// Limits of the outer cells' edges along one axis become those of their centres.
inline void edges_to_centres(double cell, double& lowest, double& highest) noexcept {
  lowest += cell / 2.0;
  highest -= cell / 2.0;
}

// The same along both axes.
inline void edges_to_centres(grid_reals& reals) noexcept {
  edges_to_centres(reals.x_cell, reals.x_min, reals.x_max);
  edges_to_centres(reals.y_cell, reals.y_min, reals.y_max);
}

}  // namespace velmorankite
