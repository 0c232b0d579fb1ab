// The first and last valid cell of every row and column of a grid, found in one pass by rows.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "condition/plane_fit.h"

namespace velmorankite {

// Where the valid cells of a row or a column begin and end, and their values there. Positions
// count from 1; first is 0 while there is none.
struct line_end_pair {
  std::int32_t first = 0;
  std::int32_t last = 0;
  float first_value = 0.0F;
  float last_value = 0.0F;

  [[nodiscard]] bool spans() const noexcept { return first < last; }
  void note(std::int32_t position, float value) noexcept {
    if (first == 0) {
      first = position;
      first_value = value;
    }
    last = position;
    last_value = value;
  }
};

struct line_ends {
  std::vector<line_end_pair> rows;     // [row - 1]
  std::vector<line_end_pair> columns;  // [column - 1]

  line_ends(std::int32_t x_count, std::int32_t y_count);
  // Takes in a row; rows come in ascending order, each once.
  void note_row(std::int32_t row, std::span<const float> cells);
};

}  // namespace velmorankite
