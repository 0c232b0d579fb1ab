// The field that binary files of tests/data hold.
// SPDX-License-Identifier: MIT
#pragma once
#include <string_view>

#include "formats/grid_description.h"

namespace velmorankite::testing {

// Expects the lattice and the cells of the field that tests/data/README.md tells of under
// "surfer, gmt, netcdf".
void expect_data_field(std::string_view name, const grid_description& grid);

}  // namespace velmorankite::testing
