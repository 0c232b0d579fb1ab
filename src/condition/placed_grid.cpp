// SPDX-License-Identifier: MIT
#include "condition/placed_grid.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

#include "grid/dummy.h"
#include "grid/row_blocks.h"

namespace velmorankite {
namespace {

// The rows of the output, where the grid is too large for memory.
class OutputRows final : public LevelRows {
 public:
  OutputRows(const Lattice& lattice, platform::BinaryFile& file, const RowLayout& layout)
      : LevelRows(lattice), file_(file), layout_(layout), cache_(width()) {}

  std::span<float> row(std::int32_t row) override {
    const RowCache::entry entry = cache_.find(row);
    if (!entry.present) {
      read_row(file_, layout_, row, entry.cells);
    }
    return entry.cells;
  }
  void keep(std::int32_t row) override { write_row(file_, layout_, row, cache_.find(row).cells); }

 private:
  platform::BinaryFile& file_;
  RowLayout layout_;
  RowCache cache_;
};

void blank_what_is_no_number(std::span<float> cells) {
  std::ranges::replace_if(
      cells, [](float cell) { return std::isnan(cell); }, dummy);
}

}  // namespace

PlacedGrid::PlacedGrid(const RowFile& source, std::int32_t column_offset, std::int32_t row_offset,
                       std::int32_t x_count, std::int32_t y_count,
                       std::int64_t most_cells_in_memory)
    : placement_{source.layout(), column_offset, row_offset} {
  const Lattice lattice{0.0, 0.0, 1.0, 1.0, x_count, y_count};
  if (lattice.cell_count() <= most_cells_in_memory) {
    try {
      cells_ = platform::LargeArray<float>(static_cast<std::size_t>(lattice.cell_count()));
    } catch (const std::bad_alloc&) {
      // By rows, as one that is too large.
    }
  }
  if (cells_.empty()) {
    rows_ = std::make_unique<InputRows>(lattice, source, placement_);
  } else {
    rows_ = std::make_unique<MemoryRows>(lattice, cells_.span());
    read_all(source);
  }
  gaps_ = GRDGAPS(*rows_, placement_);
}

void PlacedGrid::read_all(const RowFile& source) {
  for (std::int32_t row = 1; row <= rows_->lattice().y_count; ++row) {
    const std::span<float> cells = rows_->row(row);
    read_placed_row(source, placement_, row, cells);
    blank_what_is_no_number(cells);
  }
}

bool PlacedGrid::has_blanks() const noexcept {
  return gaps_.valid_count < rows_->lattice().cell_count();
}

std::int64_t PlacedGrid::write(platform::BinaryFile& output, std::int32_t header_bytes,
                               const sweep_plan& plan) {
  const Lattice& lattice = rows_->lattice();
  const RowLayout layout{sense_bottom_up, lattice.x_count, lattice.y_count, header_bytes};
  std::int64_t filled = 0;
  if (!cells_.empty()) {
    if (has_blanks()) {
      filled = GRDSWEEP(*rows_, gaps_, plan);
    }
    write_all(output, layout);
    return filled;
  }
  copy_rows(output, layout);
  if (has_blanks()) {
    OutputRows rows(lattice, output, layout);
    filled = GRDSWEEP(rows, gaps_, plan);
  }
  return filled;
}

void PlacedGrid::write_all(platform::BinaryFile& output, const RowLayout& layout) const {
  constexpr std::size_t piece = std::size_t{1} << 18;  // 1 MiB of cells
  const std::span<const float> cells = cells_.span();
  for (std::size_t first = 0; first < cells.size(); first += piece) {
    output.write_values(layout.position(1) + static_cast<std::int64_t>(first * sizeof(float)),
                        cells.subspan(first, std::min(piece, cells.size() - first)));
  }
}

void PlacedGrid::copy_rows(platform::BinaryFile& output, const RowLayout& layout) {
  RowBlockWriter writer(output, layout);
  for (std::int32_t row = 1; row <= layout.y_count; ++row) {
    const std::span<float> cells = writer.next_row();
    std::ranges::copy(rows_->row(row), cells.begin());
    blank_what_is_no_number(cells);
  }
  writer.finish();
}

}  // namespace velmorankite
