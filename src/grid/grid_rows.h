// Rows of a standard grid of 4-byte floats, by their lattice row.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <span>
#include <utility>

#include "grid/cell_position.h"
#include "grid/grid_record.h"
#include "grid/lattice.h"
#include "grid/standard_header.h"
#include "platform/binary_file.h"

namespace velmorankite {

// The longest row, in cells: its bytes fit in 31 bits.
inline constexpr std::int32_t longest_row = 0x7FFFFFFF / 4;

// How the rows of a float grid lie in its file.
struct RowLayout {
  std::int32_t storage_sense = sense_bottom_up;
  std::int32_t x_count = 0;
  std::int32_t y_count = 0;
  std::int32_t header_bytes = standard_header_bytes;

  // Byte position, from 1, of the first cell of a lattice row.
  [[nodiscard]] std::int64_t position(std::int32_t row) const noexcept {
    return GRDCELLPOS(storage_sense, header_bytes, sizeof(float), x_count, y_count, row, 1);
  }
};

[[nodiscard]] RowLayout layout_of(const grid_description& grid) noexcept;
[[nodiscard]] Lattice lattice_of(const grid_description& grid) noexcept;

// Makes sure that `file` can be read by rows as `grid` describes it: 4-byte floats, a sense
// of 1 or -2, counts of at least 1, finite cell sizes above 0, and a file that holds all the cells.
// Throws IoError that says what was expected and what is there. To be called once per opening,
// before anything is allocated from the counts.
void check_float_grid(const platform::BinaryFile& file, const grid_description& grid);

// Makes sure that `file` holds x_count by y_count cells behind its first `offset` bytes. Throws
// IoError. A row is below 2^32 bytes.
void check_cells_there(const platform::BinaryFile& file, std::int64_t offset, std::int32_t x_count,
                       std::int32_t y_count, std::int32_t cell_bytes);

// Moves x_count cells of one row (from 1, the lowest Y). Throws IoError.
void read_row(const platform::BinaryFile& file, const RowLayout& layout, std::int32_t row,
              std::span<float> cells);
void write_row(platform::BinaryFile& file, const RowLayout& layout, std::int32_t row,
               std::span<const float> cells);

// An open float grid: its file and how its rows lie there.
class RowFile {
 public:
  RowFile() = default;
  RowFile(platform::BinaryFile file, const RowLayout& layout)
      : file_(std::move(file)), layout_(layout) {}

  [[nodiscard]] bool is_open() const noexcept { return file_.is_open(); }
  [[nodiscard]] const platform::BinaryFile& file() const noexcept { return file_; }
  [[nodiscard]] platform::BinaryFile& file() noexcept { return file_; }
  [[nodiscard]] const RowLayout& layout() const noexcept { return layout_; }

  // One row, as read_row and write_row move it. Throws IoError.
  void read(std::int32_t row, std::span<float> cells) const {
    read_row(file_, layout_, row, cells);
  }
  void write(std::int32_t row, std::span<const float> cells) {
    write_row(file_, layout_, row, cells);
  }
  void close() { file_.close(); }

 private:
  platform::BinaryFile file_;
  RowLayout layout_;
};

// Opens a grid for reading, as its description says, and makes sure that it can be read by rows:
// check_float_grid. Throws IoError.
[[nodiscard]] RowFile open_rows(const std::filesystem::path& path, const grid_description& grid);

}  // namespace velmorankite
