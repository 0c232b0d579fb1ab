// The multi-level fill in its plainest form, against which the fast one is held bit for bit: whole
// arrays, every point on its own, no care for speed.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <vector>

#include "grid/lattice.h"

namespace velmorankite::testing {

struct plain_level {
  Lattice lattice;
  std::vector<float> cells;  // row 1 first

  float& at(std::int32_t column, std::int32_t row) {
    return cells[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(lattice.x_count) +
                 static_cast<std::size_t>(column - 1)];
  }
};

// Fills the level and gives the number of nodes filled over all levels; -1 if nothing is valid.
std::int64_t plain_fill(plain_level& level_0);

}  // namespace velmorankite::testing
