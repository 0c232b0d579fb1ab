// Stretches of the rows of a float grid, from a file or from memory, with dummies beyond its edges.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <span>

#include "grid/grid_record.h"
#include "grid/grid_rows.h"
#include "platform/large_array.h"

namespace velmorankite {

// Keeps one stretch for each of four neighbouring rows, so that a walk from row to row reads every
// row once, in either direction, and a walk along a line reads a stretch every so many columns.
// Memory is four stretches, however large the grid.
class CellRows {
 public:
  // An open file that holds all the cells of its layout (check_cells_there). Valid cells are kept
  // as value_transform.h makes them in `mode`.
  CellRows(RowFile rows, std::int32_t mode);
  // Cells in memory, row by row: the lowest Y first, for storage sense -2 the highest; the header's
  // bytes of the layout do not count. They must outlive this object and be as many as the layout
  // says.
  CellRows(std::span<const float> cells, const RowLayout& layout, std::int32_t mode);
  // Cells as they are, of whoever gives whole rows, from 1 at the lowest Y. A row need not last
  // beyond the next one that is asked for.
  using row_source = std::function<std::span<const float>(std::int32_t row)>;
  CellRows(row_source source, std::int32_t x_count, std::int32_t y_count);

  // The cells of columns first to last of a row. Rows and columns count from 1; those off the
  // lattice hold dummies. Valid until a row is asked for that lies a multiple of four rows away,
  // or other columns of the same row.
  //   spare  columns to read beyond either end, if the stretch must be read at all.
  const float* stretch(std::int64_t row, std::int32_t first, std::int32_t last, std::int32_t spare);

 private:
  static constexpr std::int64_t no_row = -1000;

  struct slot {
    std::int64_t row = no_row;
    std::int32_t first = 0;  // columns first to last are held
    std::int32_t last = 0;
    platform::LargeArray<float> cells;
  };

  void fill(std::int64_t row, slot& kept) const;
  void read_cells(std::int32_t row, std::int32_t first, std::span<float> cells) const;

  RowFile file_;       // open in file mode
  row_source source_;  // used when it is not
  RowLayout layout_;
  std::int32_t mode_;
  std::array<slot, 4> slots_;
};

// Whether `cells` holds all the cells that the description speaks of, counts and cell sizes sound.
[[nodiscard]] bool holds_cells(std::span<const float> cells, const grid_description& grid) noexcept;

}  // namespace velmorankite
