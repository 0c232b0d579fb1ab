// The values of one level of a fill at the nodes of another: what the cell interpolation gives at
// these points, to the bit, for whole rows at a time.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "condition/halving_columns.h"
#include "condition/level_axis.h"
#include "condition/level_rows.h"

namespace velmorankite {

// Interpolates on one level at the nodes of another.
class LevelInterpolation {
 public:
  // `nodes` must outlive the object; its values are read as they stand at each call.
  LevelInterpolation(const Lattice& points, LevelRows& nodes);

  // Values at all points of a row (from 1, the lowest Y): the node's own value at a coincident
  // node, bicubic elsewhere, the dummy at points beyond the nodes.
  void row(std::int32_t row, std::span<float> values);

  // Gives the blank cells of a row of points their values and counts them.
  //   complete  whether every one of the nodes is valid.
  fill_count fill_row(std::int32_t row, bool complete, std::span<float> cells);

 private:
  // The four rows of nodes round a row of points, from the one below its base row; empty beyond
  // the lattice.
  using row_window = std::array<std::span<const float>, 4>;

  [[nodiscard]] row_window rows_round(std::int32_t base);
  [[nodiscard]] float value_at(const row_window& nodes, std::size_t row, std::size_t column) const;
  fill_count fill_by_points(std::size_t row, std::span<float> cells);

  LevelRows& nodes_;
  axis_plan columns_;
  axis_plan rows_;
  HalvingColumns halving_;
  // Points that lie, in order, on every second node from the first on; those behind them lie
  // beyond the nodes. None if the columns lie otherwise.
  std::size_t on_every_second_ = 0;
  double largest_offset_ = 0.0;  // of these points from their nodes, cells
};

}  // namespace velmorankite
