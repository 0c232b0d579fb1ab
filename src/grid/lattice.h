// The lattice on which the cells of a grid lie.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

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

// A lattice of x_count by y_count cells that has `columns` and `rows` of its own ahead of `inner`.
[[nodiscard]] constexpr Lattice around(const Lattice& inner, std::int32_t columns,
                                       std::int32_t rows, std::int32_t x_count,
                                       std::int32_t y_count) noexcept {
  return {inner.x_min - columns * inner.x_cell,
          inner.y_min - rows * inner.y_cell,
          inner.x_cell,
          inner.y_cell,
          x_count,
          y_count};
}

// Whether `count` cells of an axis, moved by `offset`, lie within `room` cells.
[[nodiscard]] constexpr bool lie_within(std::int64_t count, std::int64_t offset,
                                        std::int64_t room) noexcept {
  return count >= 1 && offset >= 0 && offset + count <= room;
}

// Whether two positions or cell sizes count as one, in map units: what saved grids are held to.
[[nodiscard]] constexpr bool agree(double a, double b) noexcept {
  constexpr double tolerance = 1.0E-6;
  return a - b <= tolerance && b - a <= tolerance;
}

// X of all columns, in map units.
[[nodiscard]] inline std::vector<double> x_of_columns(const Lattice& lattice) {
  std::vector<double> x(static_cast<std::size_t>(lattice.x_count));
  for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
    x[static_cast<std::size_t>(column - 1)] = lattice.x(column);
  }
  return x;
}

}  // namespace velmorankite
