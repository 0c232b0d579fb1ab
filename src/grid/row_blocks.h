// Rows of a standard grid, written many at a time.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "grid/grid_rows.h"
#include "platform/binary_file.h"

namespace velmorankite {

// Writes the rows of a float grid in the order 1, 2, ... in pieces of about 1 MiB: a system that
// takes a file in large pieces keeps it in large pages, which costs it a third of the time.
class RowBlockWriter {
 public:
  // The file must outlive the writer.
  RowBlockWriter(platform::BinaryFile& file, const RowLayout& layout);
  explicit RowBlockWriter(RowFile& rows) : RowBlockWriter(rows.file(), rows.layout()) {}

  // The cells of the next row, to be filled before the next call; what they hold is not defined.
  // Writes the rows before it where they fill a block. Throws IoError.
  [[nodiscard]] std::span<float> next_row();
  // Writes the rows that are left. Without it they are lost. Throws IoError.
  void finish();

 private:
  platform::BinaryFile& file_;
  RowLayout layout_;
  std::size_t width_;
  std::size_t capacity_;  // rows of a block
  std::vector<float> block_;
  std::size_t held_ = 0;    // rows in the block
  std::int32_t begun_ = 0;  // rows given out
};

}  // namespace velmorankite
