// Where a point falls among the columns or the rows of a grid: a base node and how far the point is
// from it. The routines that take values at points go by three rules; a point of the same place has
// another base, and so other cells round it, by each.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace velmorankite {

// Nodes lie at origin + index x cell, indices from 0. Points up to half a cell beyond the first and
// the last node lie inside.
template <typename Real>
struct NodeAxis {
  Real origin;  // map units
  Real last;    // as the description tells it
  Real cell;
  std::int32_t count;  // at least 1

  // Never so for NaN. Both tests are always made: there is no branch in a loop over points.
  template <typename Coordinate>
  [[nodiscard]] constexpr bool contains(Coordinate at) const noexcept {
    return static_cast<int>(at >= origin - cell / 2) & static_cast<int>(at <= last + cell / 2);
  }

  // The index is limited before it is made an integer, so that no description, however wild, can
  // overflow it. The part behind the point is cut off.
  [[nodiscard]] constexpr std::int32_t whole(double index) const noexcept {
    index = index > 0.0 ? index : 0.0;
    index = index < count - 1.0 ? index : count - 1.0;
    return static_cast<std::int32_t>(index);
  }
};

struct PointPlace {
  std::int32_t base;
  double offset;  // from the base, in cells
};

// The base lies at least half a cell below the point, so that the offset runs from 0.5 to 1.5: the
// nearest node is the one above the base. Below the second node it runs from -0.5 on. All is
// reckoned in the type of the coordinates.
template <typename Real>
struct HalfCellAxis : NodeAxis<Real> {
  using Coordinate = Real;
  static constexpr bool looks_at_base_first = false;

  [[nodiscard]] constexpr PointPlace place(Real at) const noexcept {
    const Real from_origin = at - this->origin;
    const std::int32_t base =
        this->whole(static_cast<double>((from_origin - this->cell / 2) / this->cell));
    const Real offset = (from_origin - static_cast<Real>(base) * this->cell) / this->cell;
    return {base, static_cast<double>(offset)};
  }
};

// The base is the last node at or below the point, the offset runs from 0 to 1.
struct FloorAxis : NodeAxis<double> {
  using Coordinate = double;

  [[nodiscard]] constexpr PointPlace place(double at) const noexcept {
    const double from_origin = at - origin;
    const std::int32_t base = whole(from_origin / cell);
    return {base, (from_origin - base * cell) / cell};
  }
};

// The same reckoned from the edge of the grid, half a cell before its first node. What is made of
// the grid's own numbers alone is made in their type.
template <typename Real>
struct EdgeAxis : NodeAxis<Real> {
  using Coordinate = double;
  static constexpr bool looks_at_base_first = true;

  [[nodiscard]] constexpr PointPlace place(double at) const noexcept {
    const double from_edge = at - (this->origin - this->cell / 2);
    const std::int32_t base = this->whole((from_edge - this->cell / 2) / this->cell);
    const Real node = (static_cast<Real>(base) + Real{0.5}) * this->cell;
    return {base, (from_edge - node) / this->cell};
  }
};

// Points are placed so many at a time: the arrays then stay in the nearest cache.
inline constexpr std::size_t points_at_once = 512;
inline constexpr std::int32_t outside_axis = -1;

struct PlacedPoints {
  std::array<std::int32_t, points_at_once> base;  // outside_axis for a point that is not inside
  std::array<double, points_at_once> offset;

  template <typename Axis, typename Coordinate>
  void place(const Axis& axis, std::span<const Coordinate> at) noexcept {
    for (std::size_t i = 0; i < at.size(); ++i) {
      const PointPlace there = axis.place(at[i]);
      base[i] = axis.contains(at[i]) ? there.base : outside_axis;
      offset[i] = there.offset;
    }
  }
};

// How many points from `from` to `end` follow each other along a row, each one column further than
// the last, as the nodes of a lattice of the grid's own cell size do. Only columns and rows from
// `first` to these last ones count.
struct RunLimits {
  std::int32_t first;
  std::int32_t last_column;
  std::int32_t last_row;
};
[[nodiscard]] inline std::size_t run_length(const PlacedPoints& x, const PlacedPoints& y,
                                            std::size_t from, std::size_t end,
                                            const RunLimits& limits) noexcept {
  const std::int32_t column = x.base[from];
  const std::int32_t row = y.base[from];
  if (column < limits.first || row < limits.first || row > limits.last_row) {
    return 0;
  }
  std::size_t i = from;
  while (i < end && y.base[i] == row && x.base[i] <= limits.last_column &&
         x.base[i] - column == static_cast<std::int32_t>(i - from)) {
    ++i;
  }
  return i - from;
}

// Shorter runs are taken point by point.
inline constexpr std::size_t shortest_run = 8;

}  // namespace velmorankite
