// The values of one level of a fill at the nodes of another, for whole rows at a time.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "condition/level_rows.h"
#include "grid/cell_interpolation.h"

namespace velmorankite {

struct fill_count {
  std::int64_t filled = 0;  // blank cells that got a value
  std::int64_t lost = 0;    // of these, with a value that is not valid: only from an overflow
};

// Neighbouring cells of a row, from 0.
struct cell_run {
  std::size_t begin;
  std::size_t end;  // one behind the last
};

// The cell interpolation on one level at the nodes of another; both have the same origin.
class LevelInterpolation {
 public:
  // `nodes` must outlive the object and stay as they are meanwhile.
  LevelInterpolation(const Lattice& points, LevelRows& nodes);

  // Values at all points of a row (from 1, the lowest Y): the node's own value at a coincident
  // node, bicubic elsewhere, the dummy at points beyond the nodes.
  void row(std::int32_t row, std::span<float> values);

  // Gives the blank cells of a row of points these values and counts them.
  //   complete  whether every one of the nodes is valid: the quick case.
  fill_count fill_row(std::int32_t row, bool complete, std::span<float> cells);

 private:
  using four_nodes = std::array<std::span<const float>, 4>;  // rows round a row of points

  void fill_between(const AxisPlace& y, std::span<float> cells);
  std::size_t bring_columns(const four_nodes& nodes, double fraction, const cell_run& run,
                            std::size_t known);

  Lattice points_;
  LevelRows& nodes_;
  CellInterpolator interpolator_;
  std::vector<double> x_;  // of the points
  ColumnPlan columns_;
  GridAxis y_axis_;
  std::vector<float> values_;
  std::vector<double> column_values_;  // of the plan's stretch, as far as runs need them
  std::vector<cell_run> blanks_;       // of the row at hand
};

}  // namespace velmorankite
