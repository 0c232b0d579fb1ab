// Small standard grids for tests.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "formats/grid_description.h"
#include "grid/dummy.h"
#include "grid/lattice.h"

namespace velmorankite::testing {

// Value of the cell at a column and a row, from 1 at the bottom left.
using cell_function = std::function<float(std::int32_t column, std::int32_t row)>;

// Place of a cell in an array of whole rows, row 1 first.
constexpr std::size_t cell_index(std::int32_t column, std::int32_t row, std::int32_t x_count) {
  return static_cast<std::size_t>(std::int64_t{row - 1} * x_count + column - 1);
}

// Writes a grid of 4-byte floats in one of the senses 1 and -2.
void write_grid(const std::filesystem::path& path, const Lattice& lattice,
                const cell_function& cell, std::int32_t storage_sense = 1);

// All cells of a standard float grid, row 1 (the lowest Y) first.
std::vector<float> read_grid(const std::filesystem::path& path);

// GRDRDH, and a test failure if it fails.
grid_description describe(const std::filesystem::path& path);

// Names the first cell in which two grids differ by a bit; empty if there is none.
std::string first_difference(const std::vector<float>& expected, const std::vector<float>& actual);

}  // namespace velmorankite::testing
