// Bicubic values of a grid at lists of points, by the Catmull-Rom cubic (Catmull and Rom, 1974)
// along X and then along Y.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "grid/grid_record.h"
#include "grid/status.h"

namespace velmorankite {

// A blank name, a count of cells below 1, or arrays that are shorter than they are said to be.
inline constexpr Status bicubic_bad_call{-1};

// A value is
//   - the dummy for a point more than half a cell from the outer cells, and where its base cell has
//     no data;
//   - the base cell's own, where the point lies practically on it;
//   - else the bicubic through the four by four cells from the one left of and below the base cell
//     on. Each of the four rows is patched by itself: an empty second cell takes the base cell's
//     value, the first and the third then that of the second, the fourth that of the third.
// No value is a NaN.
//   point_count  number of points; below 1 the values are not touched.
//   x, y         the points, map units.
//   values       out: one value a point.
// Status: success or bicubic_bad_call.

// The base cell is the last at or below the point. Offsets and the kernel are reckoned in single
// precision.
//   cells        rows of x_count cells, the lowest Y first, for storage sense -2 the highest: as
//                many rows as the greater of y_count and `rows`.
//   grid         its storage sense, and the lattice in the slots of the input.
//   columns, rows  cells of the neighbourhood from these on count as empty. With storage sense -2
//                the array's first row is lattice row `rows` for the neighbourhood.
Status BICUBIC_GRID_INTERPOLATION(std::span<const float> cells, const grid_description& grid,
                                  std::int32_t columns, std::int32_t rows, std::int32_t point_count,
                                  std::span<const double> x, std::span<const double> y,
                                  std::span<float> values);

// The same in double precision, with the counts of the lattice for `columns` and `rows`.
Status BICUBIC_GRID_INTERPOLATIOND(std::span<const float> cells, const grid_description& grid,
                                   std::int32_t point_count, std::span<const double> x,
                                   std::span<const double> y, std::span<float> values);

// The base cell is the last one at least half a cell below the point: the nearest is the one after
// it. In double precision.
//   memory_flag  not 0: the grid lies in `cells`. 0: it is the file `name`.
//   name         standard grid of 4-byte floats behind a header of 512 bytes; must not be blank,
//                even where it is not used.
//   grid         its storage sense, and the lattice in the out slots.
//   columns, rows  as above; in memory they are also the length of a row and the number of rows.
//   cells        rows x columns cells, the first row as above.
// Throws IoError if the file cannot be opened, also without points. A point whose cells cannot be
// read has the dummy.
Status BICUBIC_GEO_INTERPOLATION(std::int32_t memory_flag, std::string_view name,
                                 const grid_description& grid, std::int32_t columns,
                                 std::int32_t rows, std::span<const float> cells,
                                 std::int32_t point_count, std::span<const double> x,
                                 std::span<const double> y, std::span<float> values);

}  // namespace velmorankite
