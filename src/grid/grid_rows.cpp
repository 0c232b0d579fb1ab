// SPDX-License-Identifier: MIT
#include "grid/grid_rows.h"

#include <cmath>
#include <string>

#include "platform/io_error.h"

namespace velmorankite {

using platform::expect;

RowLayout layout_of(const grid_description& grid) noexcept {
  return {grid.ints.storage_sense, grid.ints.x_count, grid.ints.y_count, grid.ints.data_offset};
}

Lattice lattice_of(const grid_description& grid) noexcept {
  return {grid.reals.x_min,  grid.reals.y_min,  grid.reals.x_cell,
          grid.reals.y_cell, grid.ints.x_count, grid.ints.y_count};
}

void check_float_grid(const platform::BinaryFile& file, const grid_description& grid) {
  const grid_ints& ints = grid.ints;
  const grid_reals& reals = grid.reals;
  const std::filesystem::path& path = file.path();
  expect(ints.element_code == 4 && ints.element_kind == kind_float, path,
         "cells of 4-byte floats expected, element size " + std::to_string(ints.element_code) +
             " and kind " + std::to_string(ints.element_kind) + " found");
  expect(ints.storage_sense == sense_bottom_up || ints.storage_sense == sense_top_down, path,
         "storage sense 1 or -2 expected, " + std::to_string(ints.storage_sense) + " found");
  expect(ints.x_count >= 1 && ints.y_count >= 1, path,
         "counts of at least 1 expected, " + std::to_string(ints.x_count) + " columns and " +
             std::to_string(ints.y_count) + " rows found");
  expect(std::isfinite(reals.x_cell) && std::isfinite(reals.y_cell) && reals.x_cell > 0.0 &&
             reals.y_cell > 0.0,
         path,
         "cell sizes above 0 expected, " + std::to_string(reals.x_cell) + " and " +
             std::to_string(reals.y_cell) + " found");
  expect(std::isfinite(reals.x_min) && std::isfinite(reals.y_min), path,
         "a finite origin expected");
  expect(ints.x_count <= longest_row, path,
         "rows below 2 GiB expected, " + std::to_string(ints.x_count) + " columns found");
  check_cells_there(file, ints.data_offset, ints.x_count, ints.y_count, 4);
}

void check_cells_there(const platform::BinaryFile& file, std::int64_t offset, std::int32_t x_count,
                       std::int32_t y_count, std::int32_t cell_bytes) {
  // Below 2^63: a row is below 2^32 bytes and there are below 2^31 of them.
  const std::int64_t wanted = offset + std::int64_t{x_count} * cell_bytes * y_count;
  const std::int64_t there = file.size();
  expect(there >= wanted, file.path(),
         "the file ends too early: " + std::to_string(x_count) + " columns by " +
             std::to_string(y_count) + " rows need " + std::to_string(wanted) + " bytes, " +
             std::to_string(there) + " are there");
}

void read_row(const platform::BinaryFile& file, const RowLayout& layout, std::int32_t row,
              std::span<float> cells) {
  file.read_values(layout.position(row), cells.first(static_cast<std::size_t>(layout.x_count)));
}

void write_row(platform::BinaryFile& file, const RowLayout& layout, std::int32_t row,
               std::span<const float> cells) {
  file.write_values(layout.position(row), cells.first(static_cast<std::size_t>(layout.x_count)));
}

RowFile open_rows(const std::filesystem::path& path, const grid_description& grid) {
  platform::BinaryFile file(path, platform::open_mode::read);
  check_float_grid(file, grid);
  return {std::move(file), layout_of(grid)};
}

}  // namespace velmorankite
