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

void read_placed_row(const RowFile& input, const input_placement& placement, std::int32_t row,
                     std::span<float> cells) {
  if (!placement.has_row(row)) {
    std::ranges::fill(cells, dummy);
    return;
  }
  placement.blank_margin(cells);
  input.read(row - placement.row_offset, placement.covered(cells));
}

std::span<float> InputRows::row(std::int32_t row) {
  const RowCache::entry entry = cache_.find(row);
  if (!entry.present) {
    read_placed_row(input_, placement_, row, entry.cells);
  }
  return entry.cells;
}

}  // namespace velmorankite
