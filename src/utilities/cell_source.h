// The cells of a grid by column and row, from memory or from a file.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <utility>
#include <vector>

#include "grid/cell_position.h"
#include "platform/binary_file.h"

namespace velmorankite {

// How the cells of a lattice follow each other. Columns and rows count from 0 here, row 0 at the
// lowest Y.
struct CellLayout {
  std::int32_t x_count = 0;
  std::int32_t y_count = 0;
  bool top_down = false;  // the highest row comes first
};

// Cells in memory, row by row.
template <typename Cell>
class MemoryCells {
 public:
  // The cells must outlive this object and be as many as the layout says, whose counts are at
  // least 1.
  MemoryCells(std::span<const Cell> cells, const CellLayout& layout)
      : layout_(layout), pitch_(layout.top_down ? -layout.x_count : layout.x_count) {
    const auto last_row = static_cast<std::size_t>(layout.y_count - 1);
    const auto width = static_cast<std::size_t>(layout.x_count);
    lowest_ = cells.data() + (layout.top_down ? last_row * width : 0);
  }

  [[nodiscard]] const CellLayout& layout() const noexcept { return layout_; }

  // The cells of a row from column `first` on; all that are asked for must lie on the lattice.
  [[nodiscard]] const Cell* stretch(std::int32_t row, std::int32_t first,
                                    std::int32_t /*count*/) const noexcept {
    return lowest_ + (pitch_ * row + first);
  }

 private:
  CellLayout layout_;
  std::ptrdiff_t pitch_;  // from a row to the one above it
  const Cell* lowest_;
};

// Cells in a file, little-endian. A read that fails is no failure of the walk: the cells that it
// was to give are not there. Memory is a stretch of each of four rows, however large the grid.
template <typename Cell>
class FileCells {
 public:
  // The cells begin behind `header_bytes`; a row must be below 2 GiB.
  FileCells(platform::BinaryFile file, const CellLayout& layout, std::int32_t header_bytes)
      : file_(std::move(file)), layout_(layout), header_bytes_(header_bytes) {}

  [[nodiscard]] const CellLayout& layout() const noexcept { return layout_; }

  // Byte position, from 1, of a cell.
  [[nodiscard]] std::int64_t position(std::int32_t row, std::int32_t column) const noexcept {
    return GRDCELLPOS(layout_.top_down ? sense_top_down : sense_bottom_up, header_bytes_,
                      sizeof(Cell), layout_.x_count, layout_.y_count, row + 1, column + 1);
  }

  // `count` cells of a row from column `first` on, all of which must lie on the lattice; null where
  // they cannot be read. Valid until a row is asked for that lies a multiple of four rows away, or
  // other columns of the same row.
  [[nodiscard]] const Cell* stretch(std::int32_t row, std::int32_t first, std::int32_t count);

 private:
  struct slot {
    std::int32_t row = -1;
    std::int32_t first = 0;
    std::vector<Cell> cells;

    [[nodiscard]] bool has(std::int32_t wanted_row, std::int32_t from, std::int32_t count) const {
      return row == wanted_row && from >= first &&
             static_cast<std::size_t>(from - first) + static_cast<std::size_t>(count) <=
                 cells.size();
    }
  };

  void fill(slot& kept, std::int32_t row, std::int32_t first, std::int32_t count);

  platform::BinaryFile file_;
  CellLayout layout_;
  std::int32_t header_bytes_;
  std::array<slot, 4> slots_;
};

extern template class FileCells<float>;
extern template class FileCells<std::int16_t>;

// Opens a file of cells. Throws IoError where it cannot be opened, where its description tells
// cells of another size, a count below 1 or a row of 2 GiB or more. Whether all cells are there is
// asked when they are read.
template <typename Cell>
[[nodiscard]] FileCells<Cell> open_cells(const std::filesystem::path& path,
                                         const CellLayout& layout, std::int32_t header_bytes,
                                         std::int32_t element_code);

}  // namespace velmorankite
