// The filling by sweeps in its plainest form, against which the fast one is held bit for bit: every
// cell of every row looked at in every pass, a copy of the grid for each.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <vector>

#include "condition/gap_sweep.h"

namespace velmorankite::testing {

struct plain_grid {
  std::int32_t x_count = 0;
  std::int32_t y_count = 0;
  std::vector<float> cells;  // in the order of the rows of a file

  [[nodiscard]] std::size_t index(std::int32_t column, std::int32_t row) const {
    return static_cast<std::size_t>((row - 1) * x_count + column - 1);
  }
  [[nodiscard]] bool has(std::int32_t column, std::int32_t row) const {
    return column >= 1 && column <= x_count && row >= 1 && row <= y_count;
  }
  // What lies outside is a dummy.
  [[nodiscard]] float at(std::int32_t column, std::int32_t row) const {
    return has(column, row) ? cells[index(column, row)] : dummy;
  }
};

// Fills the grid and gives the number of cells that got a mean.
std::int64_t plain_sweep(plain_grid& grid, const sweep_plan& plan);

}  // namespace velmorankite::testing
