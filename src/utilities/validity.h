// Storage sense 1 for grids that are stored from the top.
// SPDX-License-Identifier: MIT
#pragma once
#include <string_view>

#include "grid/status.h"

namespace velmorankite {

// Rewrites a standard grid that is stored from the highest row down (sense -2) from the lowest row
// up (sense 1). The lattice and the cells stay, the median and the mean become unknown. A grid of
// sense 1 is left alone to the byte. The new file is made beside the old one and takes its place,
// with its permissions, when it is complete; where the path is a link, the place of the file that
// it leads to.
//   path  standard grid that is not compressed; trailing blanks are dropped.
// Status: success, header_unsound, plain_cells_unknown, plain_sense_unknown (plain_grid.h). Throws
// IoError if the file cannot be read or written, does not hold all its cells or cannot be replaced. The grid
// is as it was after every failure. Memory is a block of rows.
Status GEOVALID(std::string_view path);

}  // namespace velmorankite
