// The bilinear value between four cells, of which one may be missing.
// SPDX-License-Identifier: MIT
#pragma once
#include <span>

#include "grid/cell_window.h"
#include "grid/lattice.h"

namespace velmorankite {

// The cells round a point.
struct cell_square {
  float a, b;  // lower left and right
  float c, d;  // upper left and right
};

// The value `u` of a cell right of the left cells and `v` above the lower ones; a missing corner
// is the one that makes a parallelogram of the others. The dummy where two are missing.
[[nodiscard]] float square_value(cell_square square, float u, float v) noexcept;

// Values at the points (x[i], y[i]).
//   cells   hold every cell of the grid within two columns and rows of a point that has a value.
//   grid    the lattice of the whole grid, at least 2 columns and 2 rows.
//   x, y    map units, of one length.
//   values  out: as many. A point belongs to the cell at or below and left of it, those less than
//           a cell ahead of the lattice to the first; without that cell its value is the dummy.
//           Beyond the outer cells the outer squares go on. A value that is no number is a dummy.
void bilinear_points(const CellWindow& cells, const Lattice& grid, std::span<const double> x,
                     std::span<const double> y, std::span<float> values);

}  // namespace velmorankite
