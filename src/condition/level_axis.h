// Where the nodes of one level of a fill lie among the nodes of another, along one axis.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <vector>

#include "grid/grid_axis.h"
#include "grid/lattice.h"

namespace velmorankite {

// One entry for each point, in the rounding of the cell interpolation: a cell size that is no
// binary fraction puts points a hair beside the nodes and the halfway marks, and that hair is
// part of the result.
struct axis_plan {
  std::vector<std::int32_t> nearest;  // node, from 1; 0 for a point beyond the axis
  std::vector<double> offset;         // from the nearest node, cells, -0.5 .. 0.5
  std::vector<std::int32_t> base;     // node at or before the point
  std::vector<double> fraction;       // from the base node, cells, 0 .. 1
};

[[nodiscard]] axis_plan plan_columns(const Lattice& points, const Lattice& nodes);
[[nodiscard]] axis_plan plan_rows(const Lattice& points, const Lattice& nodes);

}  // namespace velmorankite
