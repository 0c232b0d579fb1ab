// Whether a description can be that of a grid that can be read.
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/grid_description.h"
#include "grid/status.h"

namespace velmorankite {

// Holds counts, cell sizes, limits and the place of the first cell against what a grid can have.
// Whether the file holds the cells is for those to find out who read them.
// Status: success, counts_unsound, cell_size_unsound, limits_unsound, pointer_outside.
Status check_description(const grid_description& grid);

}  // namespace velmorankite
