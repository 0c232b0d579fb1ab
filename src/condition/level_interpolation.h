// The values of one level of a fill at the nodes of another: what the cell interpolation gives at
// these points, for whole rows at a time.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

#include "condition/level_axis.h"
#include "condition/level_rows.h"

namespace velmorankite {

// Interpolates on one level at the nodes of another.
class LevelInterpolation {
 public:
  // `nodes` must outlive the object; its values are read as they stand at each call.
  LevelInterpolation(const Lattice& points, LevelRows& nodes);

  // Values at the points of a row (from 1, the lowest Y): the node's own value at a coincident
  // node, bicubic elsewhere, the dummy at points beyond the nodes.
  void row(std::int32_t row, std::span<float> values);

 private:
  LevelRows& nodes_;
  axis_plan columns_;
  axis_plan rows_;
};

}  // namespace velmorankite
