// Where a coordinate falls among the cells along one axis of a grid.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "grid/grid_record.h"
#include "grid/lattice.h"

namespace velmorankite {

// Whether a point so far from its nearest cell, in cells along X and along Y, lies practically on
// the cell and takes its value.
[[nodiscard]] constexpr bool is_on_cell(double x_distance, double y_distance) noexcept {
  constexpr auto practically = static_cast<double>(0.01F);
  return x_distance + y_distance < practically;
}

// The cell nearest to a coordinate, and the distance from its centre.
struct AxisPlace {
  std::int32_t nearest = 1;  // from 1
  double offset = 0.0;       // in cells, from -0.5 to 0.5 on a sound grid

  // The last cell at or below the coordinate, from 0 to the count, and the distance from it, from
  // 0 to 1: what the cubic goes by.
  [[nodiscard]] constexpr std::int32_t base() const noexcept {
    return offset < 0.0 ? nearest - 1 : nearest;
  }
  [[nodiscard]] constexpr double fraction() const noexcept {
    const double moved = offset + 1.0;
    return offset < 0.0 ? moved : offset;
  }
};

// Cell centres lie at origin + (index - 1) x cell; the grid reaches half a cell beyond the outer
// ones.
struct GridAxis {
  double origin;
  double lowest;   // limits, themselves inside
  double highest;  //
  double cell;
  std::int32_t count;

  [[nodiscard]] constexpr bool contains(double coordinate) const noexcept {
    // Never so for NaN. Both tests are always made: there is no branch in a loop over points.
    return static_cast<int>(coordinate >= lowest) & static_cast<int>(coordinate <= highest);
  }

  // For a coordinate that the axis contains. The index is limited before it is made an integer, so
  // that no description, however wild, can overflow it.
  [[nodiscard]] constexpr AxisPlace place(double coordinate) const noexcept {
    const double from_origin = coordinate - origin;
    double index = (cell / 2.0 + from_origin) / cell;
    index = index > 0.0 ? index : 0.0;
    index = index < count - 1.0 ? index : count - 1.0;
    const auto whole = static_cast<std::int32_t>(index);
    return {whole + 1, (from_origin - whole * cell) / cell};
  }
};

[[nodiscard]] constexpr GridAxis x_axis(const grid_description& grid) noexcept {
  const grid_reals& reals = grid.reals;
  return {reals.x_min, reals.x_min - reals.x_cell / 2.0, reals.x_max + reals.x_cell / 2.0,
          reals.x_cell, grid.ints.x_count};
}

[[nodiscard]] constexpr GridAxis y_axis(const grid_description& grid) noexcept {
  const grid_reals& reals = grid.reals;
  return {reals.y_min, reals.y_min - reals.y_cell / 2.0, reals.y_max + reals.y_cell / 2.0,
          reals.y_cell, grid.ints.y_count};
}

[[nodiscard]] constexpr GridAxis x_axis(const Lattice& lattice) noexcept {
  const double half = lattice.x_cell / 2.0;
  return {lattice.x_min, lattice.x_min - half, lattice.x(lattice.x_count) + half, lattice.x_cell,
          lattice.x_count};
}

[[nodiscard]] constexpr GridAxis y_axis(const Lattice& lattice) noexcept {
  const double half = lattice.y_cell / 2.0;
  return {lattice.y_min, lattice.y_min - half, lattice.y(lattice.y_count) + half, lattice.y_cell,
          lattice.y_count};
}

}  // namespace velmorankite
