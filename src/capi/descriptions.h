// Grid descriptions as the arrays of the C interface.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>

#include "formats/grid_description.h"

namespace velmorankite::capi {

// The records hold their words in the order of the arrays.
[[nodiscard]] inline grid_description description_in(const std::int32_t* ints,
                                                     const double* reals) noexcept {
  grid_description grid;
  std::memcpy(static_cast<void*>(&grid.ints), ints, description_ints * sizeof *ints);
  std::memcpy(static_cast<void*>(&grid.reals), reals, description_reals * sizeof *reals);
  return grid;
}

// The reals alone, for a routine that takes no more of a description.
[[nodiscard]] inline grid_reals reals_in(const double* reals) noexcept {
  grid_reals record;
  std::memcpy(static_cast<void*>(&record), reals, description_reals * sizeof *reals);
  return record;
}

// The reals of a description in single precision, as routines whose names end in S take them.
[[nodiscard]] inline std::array<double, description_words> widened_reals(
    const float* reals) noexcept {
  std::array<double, description_words> wide{};
  std::copy_n(reals, description_reals, wide.begin());
  return wide;
}

inline void description_out(const grid_description& grid, std::int32_t* ints,
                            double* reals) noexcept {
  std::memcpy(ints, &grid.ints, description_ints * sizeof *ints);
  std::memcpy(reals, &grid.reals, description_reals * sizeof *reals);
}

// The cells of a lattice in the caller's memory; none where a count is below 1.
template <typename Cell>
[[nodiscard]] std::span<Cell> cells_of(Cell* cells, std::int32_t x_count,
                                       std::int32_t y_count) noexcept {
  if (x_count < 1 || y_count < 1) {
    return {};
  }
  return {cells, static_cast<std::size_t>(x_count) * static_cast<std::size_t>(y_count)};
}

}  // namespace velmorankite::capi
