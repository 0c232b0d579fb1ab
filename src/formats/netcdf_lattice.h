// NetCDF grids as programs write them today: a two-dimensional variable of any name over two
// coordinate variables.
// SPDX-License-Identifier: MIT
#pragma once
#include "formats/grid_description.h"
#include "formats/netcdf_header.h"
#include "grid/status.h"
#include "platform/binary_file.h"

namespace velmorankite {

// Whether there are cells over two dimensions that both have a coordinate variable.
[[nodiscard]] bool has_coordinates(const netcdf_header& header) noexcept;

// Describes the variable "z", or the first over both dimensions, from its coordinate variables:
// limits from their attributes "actual_range" or their values, the direction of rows and columns
// from their values; type, dummy and scale of the cells from the variable.
//   texts  out: advice where the file says two things.
// Status: success, counts_unsound, lattice_irregular, pointer_outside, layout_unsupported.
Status describe_coordinate_grid(const platform::BinaryFile& file, const netcdf_header& header,
                                grid_description& grid, grid_texts& texts);

// Puts the first cell of a variable into the description. Status: success, pointer_outside, or
// layout_unsupported for a cell beyond what the description can say.
Status place_cells(const netcdf_variable& cells, grid_ints& ints);

}  // namespace velmorankite
