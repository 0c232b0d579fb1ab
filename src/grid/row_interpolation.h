// The arithmetic of a row of interpolated points: plain arrays in, plain arrays out.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <span>

#include "grid/column_plan.h"
#include "grid/grid_axis.h"
#include "platform/large_array.h"

namespace velmorankite {

// The four rows round a row of points, the lowest first: the cells of the plan's stretch.
using four_rows = std::array<const float*, 4>;

// What the interpolation of a row works in, kept to be used again.
struct RowScratch {
  platform::LargeArray<float> column_values;
  platform::LargeArray<std::int32_t> complete;
};

// The cells nearest to the points of a row that lies practically on them.
//   cells   the nearest row: the plan's stretch.
//   values  out: one a point, the dummy outside the grid.
void copy_nearest(const float* cells, const ColumnPlan& plan, std::span<float> values);

// Values at the points of a row, on cells or between them. Each column of the stretch is brought
// to the row's Y once, and the points between complete columns are then all computed alike; only
// those beside a hole or an edge are taken one by one.
//   y       the row's place along Y.
//   values  out: one a point, the dummy outside the grid.
void interpolate_row(const four_rows& rows, const ColumnPlan& plan, const AxisPlace& y,
                     RowScratch& scratch, std::span<float> values);

// The value at one point whose nearest cell is valid and which lies between the cells.
//   rows  the four rows from the leftmost of the four columns on.
[[nodiscard]] float interpolate_patched(const four_rows& rows, float nearest, double fx, double fy);

}  // namespace velmorankite
