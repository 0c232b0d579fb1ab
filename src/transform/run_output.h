// The grids that a run puts out.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>

#include "transform/output_grid.h"
#include "transform/transform_run.h"

namespace velmorankite {

// Writes a grid with the lattice and the dummies of the input from rows of the width of the padded
// grid. Throws IoError.
value_range put_out_grid(const transform_run& run, const std::filesystem::path& path,
                         const padded_row_source& rows);

// The output grid itself, with its lines in the log and the range of the run. Throws IoError.
void put_out(transform_run& run, const padded_row_source& rows);

}  // namespace velmorankite
