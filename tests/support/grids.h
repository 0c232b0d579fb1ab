// Small standard grids for tests.
// SPDX-License-Identifier: MIT
#pragma once
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
