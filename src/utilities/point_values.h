// Values of a grid at lists of points: the routines GRDVAL and GEOVAL in their forms.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "grid/grid_record.h"
#include "grid/status.h"

namespace velmorankite {

// No usable name, a format of images (codes 4, 5 and 6), a count of cells below 1, or arrays that
// are shorter than they are said to be. All values are then the dummy.
inline constexpr Status point_values_bad_call{-1};

// Values at points, as PointEvaluation gives them.
//   memory_flag  not 0: the grid lies in `cells`. 0: it is the file `name`.
//   name         standard grid of cells as the routine takes them; trailing blanks are dropped.
//   grid         its description: format code, data offset, element code, storage sense, and the
//                lattice in the out slots.
//   cells        out_x_count x out_y_count cells row by row, the lowest Y first, for storage sense
//                -2 the highest.
//   point_count  number of points; negative: its absolute value, by logarithms.
//   x, y         the points, map units.
//   values       out: one value a point.
// Status: success or point_values_bad_call. Throws IoError if the file cannot be opened or has
// cells of another size; the values are then the dummy. A point whose cells cannot be read has the
// dummy too, and so has one that needs the last three cells of a file together (the bound of a file
// is 500 bytes and its cells).
Status GRDVALD(std::int32_t memory_flag, std::string_view name, const grid_description& grid,
               std::span<const float> cells, std::int32_t point_count, std::span<const double> x,
               std::span<const double> y, std::span<float> values);

// The same reckoned in single precision: limits, cell sizes and points, and a point's distance from
// its base cell.
Status GRDVAL(std::int32_t memory_flag, std::string_view name, const grid_description& grid,
              std::span<const float> cells, std::int32_t point_count, std::span<const float> x,
              std::span<const float> y, std::span<float> values);

// The same for cells of signed 16-bit integers, blank at or below -32767. Values are cut to whole
// numbers, what passes 16 bits to the nearest of them; a point without a value has -32767.
Status GRDVALI2(std::int32_t memory_flag, std::string_view name, const grid_description& grid,
                std::span<const std::int16_t> cells, std::int32_t point_count,
                std::span<const double> x, std::span<const double> y,
                std::span<std::int16_t> values);

// Values at points of a grid in memory, the lowest row first whatever the storage sense; the
// lattice is that of the description's slots of the input. The base cell is the last at or below
// the point.
Status GEOVAL(std::span<const float> cells, const grid_description& grid, std::int32_t point_count,
              std::span<const double> x, std::span<const double> y, std::span<float> values);

// The same with the grid's limits and cell sizes in single precision, and what is made of them
// alone.
Status GEOVALS(std::span<const float> cells, const grid_description& grid, std::int32_t point_count,
               std::span<const double> x, std::span<const double> y, std::span<float> values);

}  // namespace velmorankite
