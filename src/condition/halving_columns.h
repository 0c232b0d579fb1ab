// Columns of a level that lie on those of a level of twice the cell size and halfway between them:
// the case that nearly every row of every fill is, taken several columns at once.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "condition/level_axis.h"

namespace velmorankite {

struct fill_count {
  std::int64_t filled = 0;  // blank cells that got a value
  std::int64_t lost = 0;    // of these, with a value that is not valid: only from an overflow
};

// The points of a row of the finer level, odd columns on a node of the coarser one, even columns
// between two.
class HalvingColumns {
 public:
  explicit HalvingColumns(const axis_plan& columns, std::int32_t node_count);

  // Whether the columns lie so. If not, nothing else may be called.
  [[nodiscard]] bool is_regular() const noexcept { return regular_; }
  // The largest distance of an odd column from its node, in cells.
  [[nodiscard]] double largest_offset() const noexcept { return largest_offset_; }

  // Gives the blank cells of a row their values and counts them.
  //   nodes      four whole rows of valid nodes round the row.
  //   fraction   of the row, from the second of these towards the third.
  //   node_row   not empty: the row of nodes that this row lies on, whose values the odd columns
  //              take as they are.
  [[nodiscard]] fill_count fill(const std::array<std::span<const float>, 4>& nodes, double fraction,
                                std::span<const float> node_row, std::span<float> cells) const;

 private:
  // Node columns that are worked on together: what is needed of them stays in the first cache.
  static constexpr std::size_t run = 256;
  // Column values from two columns left of a run to two columns right of it.
  using run_values = std::array<double, run + 4>;

  void column_values(const std::array<std::span<const float>, 4>& nodes, double fraction,
                     std::size_t first, std::size_t count, run_values& values) const;

  bool regular_ = false;
  double largest_offset_ = 0.0;
  std::size_t node_count_ = 0;
  std::vector<double> node_fraction_;  // of each odd column, from its base node
  std::vector<double> half_fraction_;  // of each even column
  // All bits where an odd column lies a hair before its node: the node before it is its base.
  std::vector<std::uint64_t> before_;
};

}  // namespace velmorankite
