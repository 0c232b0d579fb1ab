// A source grid at its place in a working lattice, with its gaps, on its way to a file that is
// filled by sweeps.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <memory>

#include "condition/gap_sweep.h"
#include "condition/gap_tables.h"
#include "condition/level_rows.h"
#include "condition/level_store.h"
#include "grid/grid_rows.h"
#include "platform/large_array.h"

namespace velmorankite {

// Rows count in the order in which the file stores them, whatever its sense. A NaN is a blank and
// becomes the dummy.
class PlacedGrid {
 public:
  // Reads and analyses the source.
  //   source     its rows in the order of the file, as many as the file holds. Must outlive the
  //              grid.
  //   column_offset, row_offset  columns and rows of the lattice ahead of the first of the source.
  //   x_count, y_count  of the working lattice, which holds the source.
  //   most_cells_in_memory  a lattice with more cells is worked on by rows through the output, as
  //              is one for which the system has no memory. The result is the same to the bit.
  PlacedGrid(const RowFile& source, std::int32_t column_offset, std::int32_t row_offset,
             std::int32_t x_count, std::int32_t y_count, std::int64_t most_cells_in_memory);

  [[nodiscard]] const GapTables& gaps() const noexcept { return gaps_; }
  // Whether a cell of the working lattice is blank.
  [[nodiscard]] bool has_blanks() const noexcept;

  // Writes all rows, filled as the plan says if there is a blank. Once only.
  //   output        a file whose header stands.
  //   header_bytes  ahead of its first cell.
  // Gives the number of cells that the sweeps filled.
  std::int64_t write(platform::BinaryFile& output, std::int32_t header_bytes,
                     const sweep_plan& plan);

 private:
  void read_all(const RowFile& source);
  void write_all(platform::BinaryFile& output, const RowLayout& layout) const;
  void copy_rows(platform::BinaryFile& output, const RowLayout& layout);

  input_placement placement_;
  platform::LargeArray<float> cells_;  // empty where they are not in memory
  std::unique_ptr<LevelRows> rows_;
  GapTables gaps_;
};

// How the rows of a grid lie in its file when they are counted in the order of the file.
[[nodiscard]] constexpr RowLayout in_file_order(const RowLayout& layout) noexcept {
  return {sense_bottom_up, layout.x_count, layout.y_count, layout.header_bytes};
}

}  // namespace velmorankite
