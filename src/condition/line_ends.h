// The first and last valid cell of every row and column of a grid, found in one pass by rows.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace velmorankite {

// Where the valid cells of a row or a column begin and end, and their values there. Positions
// count from 1; first is 0 while there is none.
struct line_end_pair {
  std::int32_t first = 0;
  std::int32_t last = 0;
  float first_value = 0.0F;
  float last_value = 0.0F;

  [[nodiscard]] bool spans() const noexcept { return first < last; }
};

class line_ends {
 public:
  line_ends(std::int32_t x_count, std::int32_t y_count);
  // Takes in a row; rows come in ascending order, each once.
  void note_row(std::int32_t row, std::span<const float> cells);
  // Takes rows of a single valid cell for rows without any.
  void drop_single_cells();

  [[nodiscard]] const line_end_pair& row(std::int32_t row) const {
    return rows_[static_cast<std::size_t>(row - 1)];
  }
  [[nodiscard]] line_end_pair column(std::int32_t column) const;

 private:
  std::vector<line_end_pair> rows_;
  // An entry a column; apart, so that the processor takes several columns at a time.
  std::vector<std::int32_t> first_;
  std::vector<std::int32_t> last_;
  std::vector<float> first_value_;
  std::vector<float> last_value_;
  std::size_t begun_ = 0;  // columns that have a first cell
};

}  // namespace velmorankite
