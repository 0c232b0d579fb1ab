// Where the cells without data of a grid lie: runs of valid and of blank cells along its rows and
// columns, and which blanks are closed in by data.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "condition/level_rows.h"
#include "platform/large_array.h"

namespace velmorankite {

// Cells that follow each other along a row or a column: the first and the last, from 1.
struct cell_run {
  std::int32_t first = 0;
  std::int32_t last = 0;

  [[nodiscard]] std::int32_t length() const noexcept { return last - first + 1; }
};

// The runs of all rows, or of all columns. Those of a line stand side by side in ascending order,
// line after line, so that a run has a number under which other tables can tell more of it.
class LineRuns {
 public:
  // A run of the line that is being listed; they come in ascending order.
  void add(cell_run run) { runs_.push_back(run); }
  // The line has no more runs; the next one is begun.
  void end_line() { starts_.push_back(runs_.size()); }

  [[nodiscard]] std::span<const cell_run> all() const noexcept { return runs_; }
  // Those of a line, from 1; none where it has no such cell, or where nothing was listed.
  [[nodiscard]] std::span<const cell_run> of(std::int32_t line) const {
    return all().subspan(number(line), number(line + 1) - number(line));
  }
  // Number, from 0, of the first run at or behind the start of a line.
  [[nodiscard]] std::size_t number(std::int32_t line) const {
    const auto index = static_cast<std::size_t>(line - 1);
    return index < starts_.size() ? starts_[index] : runs_.size();
  }

 private:
  std::vector<cell_run> runs_;
  std::vector<std::size_t> starts_{0};
};

// Values of the cell mask.
inline constexpr std::int8_t mask_data = 0;
inline constexpr std::int8_t mask_enclosed = 1;
inline constexpr std::int8_t mask_exterior = -1;

// A grid's gaps, in columns and rows of the working lattice. Blank cells hang together along rows
// and columns, not across corners; those from which a way over blanks leads to the edge of the
// lattice are exterior, all others enclosed.
struct GapTables {
  std::int32_t x_count = 0;  // of the working lattice
  std::int32_t y_count = 0;
  LineRuns row_runs;     // valid cells along rows: first and last column
  LineRuns column_runs;  // and along columns: first and last row
  LineRuns row_gaps;     // blank cells, likewise; empty where there is no valid cell
  LineRuns column_gaps;
  std::vector<std::uint8_t> row_gap_exterior;  // by the gap's number
  std::vector<std::uint8_t> column_gap_exterior;
  platform::LargeArray<std::int8_t> mask;  // rows of x_count cells

  // The box round the valid cells.
  std::int32_t first_column = 0;
  std::int32_t last_column = 1;
  std::int32_t first_row = 0;
  std::int32_t last_row = 1;

  // Cells of the source.
  std::int64_t valid_count = 0;
  std::int64_t blank_count = 0;
  float minimum = 1.0E32F;  // of the valid ones; these two where there is none
  float maximum = -1.0E32F;
  float mean = 0.0F;  // summed in single precision, row after row

  [[nodiscard]] std::int8_t& mask_at(std::int32_t column, std::int32_t row) noexcept {
    return mask[static_cast<std::size_t>(std::int64_t{row - 1} * x_count + column - 1)];
  }
  [[nodiscard]] std::int8_t mask_at(std::int32_t column, std::int32_t row) const noexcept {
    return mask[static_cast<std::size_t>(std::int64_t{row - 1} * x_count + column - 1)];
  }
};

// Analyses the gaps of a source grid that lies in a working lattice. Every row of the source is
// asked for once, in ascending order; the time goes with the cells, the memory with the runs and a
// byte a cell of the lattice.
//   rows    the working lattice. A NaN is blank.
//   source  which of its rows and columns the source covers; all others are blank.
[[nodiscard]] GapTables GRDGAPS(LevelRows& rows, const input_placement& source);

}  // namespace velmorankite
