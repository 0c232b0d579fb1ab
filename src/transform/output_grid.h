// The filtered grid: the padded result cut back to the input's lattice.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>

#include "condition/plane_fit.h"
#include "formats/grid_description.h"
#include "grid/grid_rows.h"
#include "grid/value_range.h"

namespace velmorankite {

// What GRDOUT takes together.
struct output_plan {
  std::filesystem::path out_grid;
  const RowFile* input = nullptr;  // standard grid, whose dummies are kept
  grid_description input_grid;
  std::int32_t pad = 0;    // margin of the padded grid, in cells
  bool add_plane = false;  // put the plane back that was taken out ahead of the transform
  plane trend;             // distances as the fit counts them
};

// Gives row `row` (from 1, the lowest Y) of the padded grid, without its margin being cut.
using padded_row_source = std::function<void(std::int32_t row, std::span<float> cells)>;

// Writes the output grid: 4-byte floats on the input's lattice, sense 1 kept and any other written
// as -2, with the smallest and largest value in the header. The file appears when it is complete.
// Throws IoError.
value_range GRDOUT(const output_plan& plan, std::int32_t padded_columns,
                   const padded_row_source& padded_row);

}  // namespace velmorankite
