// SPDX-License-Identifier: MIT
#include "condition/level_rows.h"

#include <algorithm>

#include "grid/dummy.h"

namespace velmorankite {
RowCache::RowCache(std::size_t width) : width_(width), cells_(width * LevelRows::rows_kept) {}

RowCache::entry RowCache::find(std::int32_t row) {
  const auto slot = static_cast<std::size_t>(row % LevelRows::rows_kept);
  const bool present = held_[slot] == row;
  held_[slot] = row;
  return {std::span(cells_).subspan(slot * width_, width_), present};
}

void input_placement::blank_margin(std::span<float> cells) const {
  const auto ahead = static_cast<std::size_t>(column_offset);
  std::ranges::fill(cells.first(ahead), dummy);
  std::ranges::fill(cells.subspan(ahead + static_cast<std::size_t>(layout.x_count)), dummy);
}

void InputReader::read(std::int32_t row, std::span<float> cells) {
  if (!placement_.has_row(row)) {
    std::ranges::fill(cells, dummy);
    return;
  }
  placement_.blank_margin(cells);
  std::ranges::copy(blocks_.row(row - placement_.row_offset), placement_.covered(cells).begin());
}

std::span<float> InputRows::row(std::int32_t row) {
  const RowCache::entry entry = cache_.find(row);
  if (!entry.present) {
    input_.read(row, entry.cells);
  }
  return entry.cells;
}

std::span<float> LoadedRows::row(std::int32_t row) {
  for (; loaded_ < row; ++loaded_) {
    input_.read(loaded_ + 1, rows_.row(loaded_ + 1));
  }
  return rows_.row(row);
}

}  // namespace velmorankite
