// The distances of a few neighbouring cells from the stitch line.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

#include "grid/lattice.h"
#include "merge/sieve/band_limits.h"
#include "merge/sieve/line_segments.h"
#include "merge/sieve/segment_sieve.h"

namespace velmorankite {

// The smallest distances of the cells of a small block from the strips and the fans that are added
// to it, in any order. They are found without a division or a root for each segment: these, and
// the rounding to single precision, keep the order of distances and are left to the end.
class LeafDistances {
 public:
  static constexpr std::int32_t side = 8;  // most columns, and most rows
  // By rows of `side` cells, whatever the columns.
  using values = std::array<float, std::size_t{side} * side>;

  LeafDistances(const Lattice& window, const cell_block& block, const band_limits& band);

  void add_strip(const line_segment& s);
  void add_fan(const line_segment& s);

  // In blend widths, below 0 on the left of the line; the dummy outside the band, NaN where a cell
  // lies as far on the left of one segment as on the right of another, so that their order must
  // decide.
  void round(values& distances) const;

  [[nodiscard]] double x(std::size_t column) const noexcept { return x_[column]; }  // from 0
  [[nodiscard]] double y(std::size_t row) const noexcept { return y_[row]; }

 private:
  static constexpr std::size_t row_size = side;
  using row_values = std::array<double, row_size>;
  using cell_values = std::array<double, row_size * row_size>;

  // One segment against the columns and the rows of the block.
  struct products {
    row_values ux_px;
    row_values uy_px;
    row_values ux_py;
    row_values uy_py;
  };
  [[nodiscard]] products products_of(const line_segment& s) const;

  band_limits band_;
  std::size_t columns_;
  std::size_t rows_;
  row_values x_;  // map units
  row_values y_;
  cell_values right_strip_;  // smallest distance across a strip, map units
  cell_values left_strip_;
  cell_values right_fan_;  // smallest squared distance from the vertex of a fan
  cell_values left_fan_;
};

}  // namespace velmorankite
