// The interpolation of a grid at one point, as plainly as it can be put: nothing is kept, nothing
// is read ahead, every cell is looked up on its own. Slow, and the measure of the quick forms.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <vector>

#include "formats/grid_description.h"

namespace velmorankite::testing {

// `cells` holds all cells, row 1 (the lowest Y) first, whatever the sense of the description.
float plain_interpolation(const std::vector<float>& cells, const grid_description& grid,
                          std::int32_t mode, double x, double y);

}  // namespace velmorankite::testing
