// SPDX-License-Identifier: MIT
#include "grid/row_blocks.h"

#include <algorithm>

namespace velmorankite {
namespace {

constexpr std::size_t block_cells = std::size_t{1} << 18;

std::size_t rows_of_block(const RowLayout& layout) {
  const auto width = static_cast<std::size_t>(std::max(layout.x_count, 1));
  const auto rows = static_cast<std::size_t>(std::max(layout.y_count, 1));
  return std::clamp(block_cells / width, std::size_t{1}, rows);
}

}  // namespace

RowBlockWriter::RowBlockWriter(platform::BinaryFile& file, const RowLayout& layout)
    : file_(file),
      layout_(layout),
      width_(static_cast<std::size_t>(layout.x_count)),
      capacity_(rows_of_block(layout)),
      block_(width_ * capacity_) {}

std::span<float> RowBlockWriter::next_row() {
  if (held_ == capacity_) {
    finish();
  }
  ++begun_;
  ++held_;
  // A file that begins at the top takes its rows from the back of the block.
  const std::size_t place =
      layout_.storage_sense == sense_bottom_up ? held_ - 1 : capacity_ - held_;
  return std::span(block_).subspan(width_ * place, width_);
}

void RowBlockWriter::finish() {
  if (held_ == 0) {
    return;
  }
  const bool upwards = layout_.storage_sense == sense_bottom_up;
  const std::int32_t first_in_file =
      upwards ? begun_ - static_cast<std::int32_t>(held_) + 1 : begun_;
  file_.write_values(layout_.position(first_in_file),
                     std::span<const float>(block_).subspan(
                         upwards ? 0 : width_ * (capacity_ - held_), width_ * held_));
  held_ = 0;
}

}  // namespace velmorankite
