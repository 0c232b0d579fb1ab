// Whether a description can be that of a grid that can be read.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "formats/grid_description.h"
#include "grid/status.h"

namespace velmorankite {

// Holds counts, cell sizes and limits against what a grid can have, and the place of binary cells
// against the size of the file in bytes, so that nothing is allocated that the file cannot fill.
// Status: success, counts_unsound, cell_size_unsound, limits_unsound, pointer_outside,
// cells_missing.
Status check_description(const grid_description& grid, std::int64_t file_size);

}  // namespace velmorankite
