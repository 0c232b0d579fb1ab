// SPDX-License-Identifier: MIT
#include "support/grids.h"

#include <gtest/gtest.h>

#include <bit>

#include "formats/describe_grid.h"
#include "grid/grid_rows.h"
#include "grid/standard_header.h"

namespace velmorankite::testing {

void write_grid(const std::filesystem::path& path, const Lattice& lattice,
                const cell_function& cell, std::int32_t storage_sense) {
  platform::BinaryFile file(path, platform::open_mode::create);
  OUTPUT_GEOSOFT_HEADER(file, float_grid_header(lattice, storage_sense));
  const RowLayout layout{storage_sense, lattice.x_count, lattice.y_count};
  std::vector<float> cells(static_cast<std::size_t>(lattice.x_count));
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
      cells[static_cast<std::size_t>(column - 1)] = cell(column, row);
    }
    write_row(file, layout, row, cells);
  }
}

std::vector<float> read_grid(const std::filesystem::path& path) {
  const grid_description grid = describe(path);
  const platform::BinaryFile file(path, platform::open_mode::read);
  check_float_grid(file, grid);
  const auto width = static_cast<std::size_t>(grid.ints.x_count);
  std::vector<float> cells(width * static_cast<std::size_t>(grid.ints.y_count));
  for (std::int32_t row = 1; row <= grid.ints.y_count; ++row) {
    read_row(file, layout_of(grid), row,
             std::span(cells).subspan(width * static_cast<std::size_t>(row - 1), width));
  }
  return cells;
}

grid_description describe(const std::filesystem::path& path) {
  grid_description grid;
  grid_texts texts;
  EXPECT_EQ(GRDRDH(path.string(), grid, texts).code, 0) << path;
  return grid;
}

std::string first_difference(const std::vector<float>& expected, const std::vector<float>& actual) {
  if (expected.size() != actual.size()) {
    return std::to_string(expected.size()) + " cells against " + std::to_string(actual.size());
  }
  for (std::size_t i = 0; i < expected.size(); ++i) {
    if (std::bit_cast<std::uint32_t>(expected[i]) != std::bit_cast<std::uint32_t>(actual[i])) {
      return "cell " + std::to_string(i) + ": " + std::to_string(expected[i]) + " against " +
             std::to_string(actual[i]);
    }
  }
  return {};
}

}  // namespace velmorankite::testing
