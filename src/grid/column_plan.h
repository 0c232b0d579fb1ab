// Where the points of a row fall among the columns of a grid. Walked row by row, a lattice asks
// for the same X again and again: they are placed once.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "grid/grid_axis.h"
#include "platform/large_array.h"

namespace velmorankite {

// Columns are counted from 0 within the stretch of columns that the points reach.
struct ColumnPlan {
  static constexpr std::int32_t outside = -1;

  std::int32_t first_column = 1;  // the stretch, as columns of the grid from -1 to the count + 2
  std::int32_t last_column = 0;
  std::size_t begin = 0;  // the points before begin and from end on are outside the grid
  std::size_t end = 0;

  // One entry a point; those of a point outside can be computed with, but mean nothing.
  platform::LargeArray<std::int32_t> left;     // leftmost of the four columns round the point
  platform::LargeArray<std::int32_t> nearest;  // the nearest column, or outside
  platform::LargeArray<double> fraction;       // distance from the second of the four, 0 to 1
  platform::LargeArray<double> distance;       // distance from the nearest column, in cells

  // Of the points from begin to end:
  double largest_distance = 0.0;  // from the nearest column, in cells
  bool all_inside = true;         // none is outside
  bool left_ascends = true;       // left goes up by one from point to point
  bool nearest_ascends = true;    // so does nearest

  // Makes the plan for points at `x`, unless it is the plan for them already. One plan, one axis.
  void make(const GridAxis& axis, std::span<const double> x);

  // Whether all points from begin to end take a cell's own value on a row that lies `y_distance`
  // cells from the nearest row of the grid.
  [[nodiscard]] bool all_on_cells(double y_distance) const noexcept {
    return is_on_cell(largest_distance, y_distance);
  }

 private:
  void place_all(GridAxis axis);
  void survey();
  void count_from_stretch();

  std::size_t count_ = 0;
  platform::LargeArray<double> x_;
};

}  // namespace velmorankite
