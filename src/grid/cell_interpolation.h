// Values of a grid at arbitrary points: the one road by which a grid is put on another lattice.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>

#include "grid/cell_rows.h"
#include "grid/cell_window.h"
#include "grid/column_plan.h"
#include "grid/grid_axis.h"
#include "grid/grid_record.h"
#include "grid/row_interpolation.h"
#include "grid/status.h"

namespace velmorankite {

inline constexpr Status interpolation_bad_call{-1};

// Keeps a grid open and gives its values at points. A value is
//   - the nearest cell's own, where the point lies practically on its centre;
//   - the dummy, where the nearest cell is empty, where the point is further than half a cell from
//     the outer cell centres, or is not a number;
//   - else the Catmull-Rom cubic through the four by four cells round the point, first along Y and
//     then along X, with holes among them patched from the inside.
// It depends on the point alone: neither on the points before it nor on the road to the cells.
// No value is a NaN: a cell that is one counts as empty.
//
// Interpolation modes: 2 interpolates logarithms, 3 log-linear values, any other the values as
// they are (value_transform.h).
//
// Rows are read as they are needed, and only as far as the points reach; four of them are kept.
// Throws IoError where the grid is not what its description says or cannot be read.
class CellInterpolator {
 public:
  // A standard grid of 4-byte floats on disk; the points lie within the limits that it tells.
  CellInterpolator(const std::filesystem::path& path, const grid_description& grid,
                   std::int32_t mode = 1);
  // Cells in memory in the storage sense of the description; holds_cells must hold for them.
  CellInterpolator(std::span<const float> cells, const grid_description& grid,
                   std::int32_t mode = 1);
  // The same for whoever knows a lattice and no description: an open file that holds its cells,
  // or cells in memory, as CellRows takes them.
  CellInterpolator(RowFile rows, const Lattice& lattice, std::int32_t mode = 1);
  CellInterpolator(std::span<const float> cells, std::int32_t storage_sense, const Lattice& lattice,
                   std::int32_t mode = 1);
  // Rows of a lattice from whoever holds them, as CellRows takes them.
  CellInterpolator(const Lattice& lattice, CellRows::row_source rows);

  // Values at the points (x[i], y[i]), in map units. All three are of one length.
  void points(std::span<const double> x, std::span<const double> y, std::span<float> values);

  // Values at the points (x[i], y): the quick form for whoever walks a lattice row by row.
  void row(std::span<const double> x, double y, std::span<float> values);

 private:
  float value_at(const AxisPlace& x, const AxisPlace& y);

  CellRows rows_;
  CellWindow memory_;  // all cells, where they lie in memory and are taken as they are
  GridAxis x_axis_;
  GridAxis y_axis_;
  std::int32_t mode_;
  ColumnPlan plan_;
  RowScratch scratch_;
};

// Resamples a grid at points, all in one call.
//   source_flag  0: the grid is the file `path`. Not 0: it lies in `cells`.
//   path         standard grid of 4-byte floats; trailing blanks are dropped.
//   grid         its description: layout, counts, limits, cell sizes.
//   cells        x_count x y_count cells row by row, the lowest Y first, for storage sense -2 the
//                highest.
//   mode         interpolation mode; out: 2 if the count is negative.
//   point_count  number of points; negative: its absolute value, in mode 2.
//   x, y         the points, map units.
//   values       out: one value a point.
// Status: success; interpolation_bad_call for a blank path, no points, or arrays that are shorter
// than they are said to be; `values` is then as it was. Throws IoError as CellInterpolator does.
Status GEO_CELL_INTERPOLATION(std::int32_t source_flag, std::string_view path,
                              const grid_description& grid, std::span<const float> cells,
                              std::int32_t& mode, std::int32_t point_count,
                              std::span<const double> x, std::span<const double> y,
                              std::span<float> values);

}  // namespace velmorankite
