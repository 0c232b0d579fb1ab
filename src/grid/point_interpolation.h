// The Catmull-Rom cubic at points that lie anywhere among cells in memory.
// SPDX-License-Identifier: MIT
#pragma once
#include <span>

#include "grid/cell_window.h"
#include "grid/grid_axis.h"

namespace velmorankite {

// Values at the points (x[i], y[i]), bit by bit those of CellInterpolator for plain values.
//   cells         hold every cell of the grid within two columns and rows of a point that the axes
//                 contain; what they do not hold is taken as empty.
//   x_axis, y_axis  of the grid.
//   x, y          map units, of one length.
//   values        out: as many; the dummy outside the grid and on an empty cell. A value that is
//                 no number is left as it is.
void interpolate_points(const CellWindow& cells, const GridAxis& x_axis, const GridAxis& y_axis,
                        std::span<const double> x, std::span<const double> y,
                        std::span<float> values);

}  // namespace velmorankite
