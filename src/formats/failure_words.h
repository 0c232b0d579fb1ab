// Why a grid is refused, in words for its user.
// SPDX-License-Identifier: MIT
#pragma once
#include <string>

#include "formats/grid_description.h"
#include "grid/status.h"

namespace velmorankite {

// What a failed description (GRDRDH) means: of the meanings that a number has, the one for the
// format of this grid.
[[nodiscard]] std::string words_of_description(Status status, const grid_description& grid);

// What a failed conversion (GRDRDG) means: the number of a stored line too.
[[nodiscard]] std::string words_of_conversion(Status status, const grid_description& grid);

}  // namespace velmorankite
