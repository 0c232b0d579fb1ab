// Values of a grid at points, from the three by three cells round each, as far as they have data.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <utility>
#include <variant>

#include "grid/grid_record.h"
#include "grid/lattice.h"
#include "utilities/block_interpolant.h"
#include "utilities/cell_source.h"
#include "utilities/point_axes.h"

namespace velmorankite {

// What is interpolated: the cells, or their logarithms to the base of 10, in which a cell that is
// not above 0 counts as 10 to the power of -8.
enum class value_scale : std::uint8_t { linear, logarithmic };

// A grid that is kept open to give its values at points. A value is
//   - the dummy for a point more than half a cell from the outer cells, or whose base cell has no
//     data: the last one at least half a cell below the point along both axes (point_axes.h);
//   - the base cell's own, where the point lies practically on it;
//   - else that of block_value, the block being centred on the base cell or, where that lies on the
//     edge of the grid, on its neighbour inside. Columns and rows that a grid of fewer than three
//     does not have count as cells without data.
// No value is a NaN. A block that a file does not give leaves the dummy.
//   Cell  float or std::int16_t, whose dummies are -1.0E32 and -32767.
//   Axis  HalfCellAxis<double>, or another of point_axes.h for the routines that go by it.
template <typename Cell, typename Axis>
class PointEvaluation {
 public:
  using Coordinate = typename Axis::Coordinate;
  using Cells = std::variant<MemoryCells<Cell>, FileCells<Cell>>;

  PointEvaluation(Cells cells, const Axis& x, const Axis& y, value_scale scale)
      : cells_(std::move(cells)), x_axis_(x), y_axis_(y), scale_(scale) {}

  // Values at the points (x[i], y[i]), in map units. All three are of one length.
  void points(std::span<const Coordinate> x, std::span<const Coordinate> y,
              std::span<float> values);

  // The value at one point. Points in order along a line share their blocks.
  [[nodiscard]] float at(Coordinate x, Coordinate y);

 private:
  template <typename Source>
  void points_from(Source& source, std::span<float> values);
  template <typename Source>
  bool run_from(Source& source, std::size_t from, std::span<float> values);
  template <typename Source>
  float value_from(Source& source, std::size_t i);
  template <typename Source>
  bool hold_block(Source& source, std::int32_t column, std::int32_t row);
  [[nodiscard]] float value_in_block(double u, double v) const;

  Cells cells_;
  Axis x_axis_;
  Axis y_axis_;
  value_scale scale_;
  PlacedPoints x_;
  PlacedPoints y_;
  nine_cells block_;  // the one of the last point, its cells on the scale
  std::int32_t block_column_ = 0;
  std::int32_t block_row_ = 0;
  bool block_held_ = false;
};

// The form for whoever walks a grid of floats: from memory, or from a file.
using GridPoints = PointEvaluation<float, HalfCellAxis<double>>;

// Cells in memory, x_count x y_count of them row by row: the lowest Y first, for storage sense -2
// the highest. They must outlive what is returned.
[[nodiscard]] GridPoints points_of_grid(std::span<const float> cells, std::int32_t storage_sense,
                                        const Lattice& lattice,
                                        value_scale scale = value_scale::linear);

// A described standard grid of 4-byte floats on disk. Throws IoError as open_cells does.
[[nodiscard]] GridPoints points_of_grid(const std::filesystem::path& path,
                                        const grid_description& grid,
                                        value_scale scale = value_scale::linear);

// The axes of a description, from its out slots.
template <typename Real>
[[nodiscard]] HalfCellAxis<Real> out_x_axis(const grid_description& grid) noexcept {
  return {{static_cast<Real>(grid.reals.out_x_min), static_cast<Real>(grid.reals.out_x_max),
           static_cast<Real>(grid.reals.out_x_cell), grid.ints.out_x_count}};
}
template <typename Real>
[[nodiscard]] HalfCellAxis<Real> out_y_axis(const grid_description& grid) noexcept {
  return {{static_cast<Real>(grid.reals.out_y_min), static_cast<Real>(grid.reals.out_y_max),
           static_cast<Real>(grid.reals.out_y_cell), grid.ints.out_y_count}};
}

// How a description's cells follow each other in a file, where every sense but 1 begins at the
// top, and in memory, where only -2 does.
[[nodiscard]] CellLayout layout_in_file(const grid_description& grid) noexcept;
[[nodiscard]] CellLayout layout_in_memory(const grid_description& grid) noexcept;

extern template class PointEvaluation<float, HalfCellAxis<double>>;
extern template class PointEvaluation<float, HalfCellAxis<float>>;
extern template class PointEvaluation<float, EdgeAxis<double>>;
extern template class PointEvaluation<float, EdgeAxis<float>>;
extern template class PointEvaluation<std::int16_t, HalfCellAxis<double>>;

}  // namespace velmorankite
