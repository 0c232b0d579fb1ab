// A quarter turn of a standard grid.
// SPDX-License-Identifier: MIT
#pragma once
#include <string_view>

#include "grid/status.h"

namespace velmorankite {

// Turns a grid counter-clockwise by a quarter turn, so that rows become columns. What lay at
// (X, Y) lies at (2 y_max - Y, X) then, with y_max the input's highest row: the turn is about the
// point (y_max, y_max), and the origin of the output is (y_max, x_min). The cell sizes change
// places, the output is stored from the top (sense -2), all else of the header stays.
//   input_path   standard grid of cells of 4 bytes; trailing blanks are dropped. Not changed.
//   output_path  "outfile.grd" if fewer than 2 characters are left of it.
// Status: success, header_unsound, plain_cells_unknown (cells of other than 4 bytes),
// plain_sense_unknown (plain_grid.h). Nothing is written after a failure. Throws IoError if a file
// operation fails, if the file does not hold all its cells or if both paths lead to one file.
// Memory is the input's cells and a block of rows.
Status GEOFLIP(std::string_view input_path, std::string_view output_path);

}  // namespace velmorankite
