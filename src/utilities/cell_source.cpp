// SPDX-License-Identifier: MIT
#include "utilities/cell_source.h"

#include <algorithm>
#include <string>

#include "grid/grid_rows.h"
#include "platform/byte_order.h"
#include "platform/io_error.h"

namespace velmorankite {
namespace {

// Columns that are read on both sides of those asked for, since neighbours often come next.
constexpr std::int32_t columns_to_spare = 125;

// As many of the bytes as the file has there and gives.
std::size_t read_bytes(const platform::BinaryFile& file, std::int64_t position,
                       std::span<std::byte> bytes) {
  try {
    return position < 1 ? 0 : file.read_some(position, bytes);
  } catch (const platform::IoError&) {
    return 0;
  }
}

}  // namespace

template <typename Cell>
const Cell* FileCells<Cell>::stretch(std::int32_t row, std::int32_t first, std::int32_t count) {
  slot& kept = slots_[static_cast<std::size_t>(row) % slots_.size()];
  if (!kept.has(row, first, count)) {
    fill(kept, row, first, count);
  }
  return kept.has(row, first, count) ? kept.cells.data() + (first - kept.first) : nullptr;
}

template <typename Cell>
void FileCells<Cell>::fill(slot& kept, std::int32_t row, std::int32_t first, std::int32_t count) {
  kept.row = row;
  kept.first = std::max(0, first - columns_to_spare);
  const std::int64_t end = std::int64_t{first} + count + columns_to_spare;
  const std::int64_t last = std::min<std::int64_t>(end, layout_.x_count);
  kept.cells.resize(static_cast<std::size_t>(last - kept.first));
  const std::size_t bytes =
      read_bytes(file_, position(row, kept.first), std::as_writable_bytes(std::span(kept.cells)));
  kept.cells.resize(bytes / sizeof(Cell));
  platform::swap_from_little(std::span(kept.cells));
}

template <typename Cell>
FileCells<Cell> open_cells(const std::filesystem::path& path, const CellLayout& layout,
                           std::int32_t header_bytes, std::int32_t element_code) {
  platform::BinaryFile file(path, platform::open_mode::read);
  platform::expect(element_code == std::int32_t{sizeof(Cell)}, path,
                   "cells of " + std::to_string(sizeof(Cell)) + " bytes expected, element size " +
                       std::to_string(element_code) + " found");
  platform::expect(
      layout.x_count >= 1 && layout.y_count >= 1 && layout.x_count <= longest_row, path,
      "counts of at least 1 and rows below 2 GiB expected, " + std::to_string(layout.x_count) +
          " columns and " + std::to_string(layout.y_count) + " rows found");
  return {std::move(file), layout, header_bytes};
}

template class FileCells<float>;
template class FileCells<std::int16_t>;
template FileCells<float> open_cells(const std::filesystem::path&, const CellLayout&, std::int32_t,
                                     std::int32_t);
template FileCells<std::int16_t> open_cells(const std::filesystem::path&, const CellLayout&,
                                            std::int32_t, std::int32_t);

}  // namespace velmorankite
