// SPDX-License-Identifier: MIT
#include "grid/row_blocks.h"

#include <algorithm>

namespace velmorankite {
namespace {

// Well within the second cache.
constexpr std::int64_t block_bytes = std::int64_t{1} << 18;

std::int64_t row_bytes(const RowLayout& layout) {
  return std::int64_t{layout.x_count} * static_cast<std::int64_t>(sizeof(float));
}

}  // namespace

RowBlocks::RowBlocks(const RowLayout& layout)
    : layout_(layout),
      rows_per_block_(std::clamp<std::int64_t>(block_bytes / row_bytes(layout), 1, layout.y_count)),
      cells_(static_cast<std::size_t>(rows_per_block_ * layout.x_count)) {}

std::int64_t RowBlocks::stored_index(std::int32_t row) const noexcept {
  return layout_.storage_sense == sense_bottom_up ? row - 1 : layout_.y_count - row;
}

std::int64_t RowBlocks::position(std::int64_t stored) const noexcept {
  return layout_.header_bytes + stored * row_bytes(layout_) + 1;
}

std::span<float> RowBlocks::cells(std::int64_t stored, std::int64_t count) noexcept {
  const std::int64_t row = stored % rows_per_block_;
  return cells_.span().subspan(static_cast<std::size_t>(row * layout_.x_count),
                               static_cast<std::size_t>(count * layout_.x_count));
}

std::span<const float> RowBlockReader::row(std::int32_t row) {
  const std::int64_t stored = stored_index(row);
  if (block_of(stored) != block_) {
    block_ = -1;  // nothing is held if the read fails
    const std::int64_t first = stored - stored % rows_per_block_;
    const std::int64_t count = std::min(rows_per_block_, layout_.y_count - first);
    file_.read_values(position(first), cells(first, count));
    block_ = block_of(stored);
  }
  return cells(stored);
}

void RowBlockWriter::write(std::int32_t row, std::span<const float> cells) {
  const std::int64_t stored = stored_index(row);
  const bool adjoins = stored == first_ - 1 || stored == end_;
  if (first_ == end_ || !adjoins || block_of(stored) != block_of(first_)) {
    finish();
    first_ = end_ = stored;
  }
  std::ranges::copy(cells.first(static_cast<std::size_t>(layout_.x_count)),
                    RowBlocks::cells(stored).begin());
  first_ = std::min(first_, stored);
  end_ = std::max(end_, stored + 1);
}

void RowBlockWriter::finish() {
  if (first_ < end_) {
    file_.write_values(position(first_), std::span<const float>(cells(first_, end_ - first_)));
  }
  first_ = end_;
}

}  // namespace velmorankite
