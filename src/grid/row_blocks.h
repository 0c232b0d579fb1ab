// Rows of a standard grid of 4-byte floats, moved in blocks: the system takes many rows at once in
// a third of the time that they take one by one.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

#include "grid/grid_rows.h"
#include "platform/binary_file.h"
#include "platform/large_array.h"

namespace velmorankite {

// The rows of one block after another, in the order in which the file stores them.
class RowBlocks {
 public:
  explicit RowBlocks(const RowLayout& layout);

 protected:
  // Place of a lattice row (from 1, the lowest Y) in the file, from 0.
  [[nodiscard]] std::int64_t stored_index(std::int32_t row) const noexcept;
  // Byte position, from 1, of a row by its place in the file.
  [[nodiscard]] std::int64_t position(std::int64_t stored) const noexcept;
  // Cells of `count` rows of the block from the one at a place in the file on.
  [[nodiscard]] std::span<float> cells(std::int64_t stored, std::int64_t count = 1) noexcept;
  [[nodiscard]] std::int64_t block_of(std::int64_t stored) const noexcept {
    return stored / rows_per_block_;
  }

  RowLayout layout_;
  std::int64_t rows_per_block_;
  platform::LargeArray<float> cells_;
};

// Reads each block of a grid once, as long as rows are asked for in order, upwards or downwards.
class RowBlockReader : private RowBlocks {
 public:
  // `file` must outlive the reader and hold the grid that `layout` describes.
  RowBlockReader(const platform::BinaryFile& file, const RowLayout& layout)
      : RowBlocks(layout), file_(file) {}

  // The x_count cells of a lattice row, from 1; good until the next call. Throws IoError.
  std::span<const float> row(std::int32_t row);

 private:
  const platform::BinaryFile& file_;
  std::int64_t block_ = -1;
};

// Gathers rows that are given in order, upwards or downwards, and writes them by blocks.
class RowBlockWriter : private RowBlocks {
 public:
  // `file` must outlive the writer.
  RowBlockWriter(platform::BinaryFile& file, const RowLayout& layout)
      : RowBlocks(layout), file_(file) {}

  // Takes the x_count cells of a lattice row, from 1. Throws IoError.
  void write(std::int32_t row, std::span<const float> cells);
  // Writes what is still held; without it the last rows are lost. Throws IoError.
  void finish();

 private:
  platform::BinaryFile& file_;
  std::int64_t first_ = 0;  // places in the file of the rows that are held: first_ to end_ - 1
  std::int64_t end_ = 0;
};

}  // namespace velmorankite
