// The lattice on which the cells of a grid lie.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace velmorankite {

// Positions are cell centres in map units. Columns count from 1 at the lowest X, rows from 1 at
// the lowest Y, whatever the order in which a file stores them.
struct Lattice {
  double x_min = 0.0;
  double y_min = 0.0;
  double x_cell = 0.0;
  double y_cell = 0.0;
  std::int32_t x_count = 0;
  std::int32_t y_count = 0;

  [[nodiscard]] constexpr double x(std::int32_t column) const noexcept {
    return x_min + (column - 1) * x_cell;
  }
  [[nodiscard]] constexpr double y(std::int32_t row) const noexcept {
    return y_min + (row - 1) * y_cell;
  }
  [[nodiscard]] constexpr std::int64_t cell_count() const noexcept {
    return static_cast<std::int64_t>(x_count) * y_count;
  }
  friend constexpr bool operator==(const Lattice&, const Lattice&) = default;
};

}  // namespace velmorankite
