// A standard grid without its outer rows and columns of blanks.
// SPDX-License-Identifier: MIT
#pragma once
#include <string_view>

#include "grid/status.h"

namespace velmorankite {

inline constexpr Status trim_no_data{-1};

// Cuts away the outer rows and columns that hold no data. What is kept lies where it lay; the
// median and the mean become unknown, all else of the header stays.
//   input_path   standard grid of 4-byte floats, 4-byte or 2-byte integers; trailing blanks are
//                dropped. Not changed.
//   output_path  "outfile.grd" if fewer than 2 characters are left of it.
// Integers are compared with the dummy of signed cells, whatever the header says of their sign.
// Status: success; trim_no_data, but a grid of one cell is written in any case; header_unsound,
// plain_cells_unknown, plain_sense_unknown (plain_grid.h). Nothing is written after a failure.
// Throws IoError if a file operation fails, if the file does not hold all its cells or if both
// paths lead to one file. Cost: two reads of the grid and one write; memory is a block of rows.
Status GEOTRIM(std::string_view input_path, std::string_view output_path);

}  // namespace velmorankite
