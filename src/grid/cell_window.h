// Cells in memory: some columns and rows of a grid, or all of it.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>

namespace velmorankite {

// Columns and rows are those of the grid, from 1 at the lowest X and Y. The cells belong to whoever
// made the window.
struct CellWindow {
  const float* cells = nullptr;  // the cell of the first column and the first row
  std::ptrdiff_t row_step = 0;   // to the cell above; below 0 where the highest row comes first
  std::int32_t first_column = 1;
  std::int32_t first_row = 1;
  std::int32_t last_column = 0;
  std::int32_t last_row = 0;

  [[nodiscard]] constexpr bool holds(std::int32_t column, std::int32_t row) const noexcept {
    return column >= first_column && column <= last_column && row >= first_row && row <= last_row;
  }
  // A cell that the window holds, with those to its right behind it.
  [[nodiscard]] constexpr const float* at(std::int32_t column, std::int32_t row) const noexcept {
    return cells + row_step * (row - first_row) + (column - first_column);
  }
};

}  // namespace velmorankite
