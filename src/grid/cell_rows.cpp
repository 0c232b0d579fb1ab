// SPDX-License-Identifier: MIT
#include "grid/cell_rows.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "grid/dummy.h"
#include "grid/value_transform.h"

namespace velmorankite {

CellRows::CellRows(RowFile rows, std::int32_t mode)
    : file_(std::move(rows)), layout_(file_.layout()), mode_(mode) {}

CellRows::CellRows(std::span<const float> cells, const RowLayout& layout, std::int32_t mode)
    : layout_(layout), mode_(mode) {
  source_ = [cells, layout = layout_](std::int32_t row) {
    const std::int32_t stored =
        layout.storage_sense == sense_top_down ? layout.y_count - row : row - 1;
    const auto width = static_cast<std::size_t>(layout.x_count);
    return cells.subspan(static_cast<std::size_t>(stored) * width, width);
  };
}

CellRows::CellRows(row_source source, std::int32_t x_count, std::int32_t y_count)
    : source_(std::move(source)), layout_{sense_bottom_up, x_count, y_count}, mode_(1) {}

const float* CellRows::stretch(std::int64_t row, std::int32_t first, std::int32_t last,
                               std::int32_t spare) {
  slot& kept = slots_[static_cast<std::uint64_t>(row) % slots_.size()];
  if (kept.row != row || first < kept.first || last > kept.last) {
    kept.row = no_row;  // stays so if the read fails
    kept.first = first - std::clamp(first - 1, 0, spare);
    kept.last = last + std::clamp(layout_.x_count - last, 0, spare);
    kept.cells.make_room(static_cast<std::size_t>(kept.last - kept.first) + 1);
    fill(row, kept);
    kept.row = row;
  }
  return kept.cells.data() + (first - kept.first);
}

void CellRows::fill(std::int64_t row, slot& kept) const {
  const std::span<float> cells =
      kept.cells.span().first(static_cast<std::size_t>(kept.last - kept.first) + 1);
  const std::int32_t first = std::max(kept.first, 1);
  const std::int32_t last = std::min(kept.last, layout_.x_count);
  if (row < 1 || row > layout_.y_count || first > last) {
    std::ranges::fill(cells, dummy);
    return;
  }
  const auto begin = static_cast<std::size_t>(first - kept.first);
  const auto count = static_cast<std::size_t>(last - first) + 1;
  const std::span<float> inside = cells.subspan(begin, count);
  std::ranges::fill(cells.first(begin), dummy);
  std::ranges::fill(cells.subspan(begin + count), dummy);
  read_cells(static_cast<std::int32_t>(row), first, inside);
  if (is_transformed(mode_)) {
    for (float& cell : inside) {
      cell = is_valid(cell) ? transform_value(mode_, cell) : cell;
    }
  }
}

void CellRows::read_cells(std::int32_t row, std::int32_t first, std::span<float> cells) const {
  if (file_.is_open()) {
    const std::int64_t ahead = std::int64_t{first - 1} * std::int64_t{sizeof(float)};
    file_.file().read_values(layout_.position(row) + ahead, cells);
    return;
  }
  const auto ahead = static_cast<std::size_t>(first - 1);
  std::ranges::copy(source_(row).subspan(ahead, cells.size()), cells.begin());
}

bool holds_cells(std::span<const float> cells, const grid_description& grid) noexcept {
  const Lattice lattice = lattice_of(grid);
  return lattice.x_count >= 1 && lattice.x_count <= longest_row && lattice.y_count >= 1 &&
         std::isfinite(lattice.x_cell) && lattice.x_cell > 0.0 && std::isfinite(lattice.y_cell) &&
         lattice.y_cell > 0.0 && cells.size() >= static_cast<std::size_t>(lattice.cell_count());
}

}  // namespace velmorankite
