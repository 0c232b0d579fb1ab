// Conversion of any grid file to the standard grid.
// SPDX-License-Identifier: MIT
#pragma once
#include <string_view>

#include "formats/grid_description.h"
#include "formats/grid_window.h"
#include "formats/line_source.h"
#include "grid/status.h"
#include "platform/scratch_file.h"

namespace velmorankite {

inline constexpr Status conversion_output_unopened{-12};  // or it would replace a file of the input
inline constexpr Status expansion_failed{-10001};         // of a compressed grid
inline constexpr Status expansion_unopened{-10002};
inline constexpr Status expansion_folder_unset{-10901};  // "TEMP", where the folder has no room
inline constexpr Status expansion_unplaced{-10902};

// Writes a standard grid of 4-byte floats, highest row first, with the cells of another file or of
// a window of it.
//   input, output  paths; trailing blanks and one trailing NUL are dropped. The output appears
//                  under its name when it is complete.
//   grid    of the input, from GRDRDH; out, on success: the out_ fields, counts of cells with and
//           without data, smallest and largest value, mean and standard deviation.
//   window  what is kept; out: the grid's own limits if a step is below 1.
// Only lines of the window are looked for: a binary file that is cut off behind them converts, and
// one that is cut off ahead of their end is refused before anything is allocated. Grids that store
// rows are converted line by line, whatever their size; those that store columns are held in
// memory. Compressed grids are expanded into a scratch file in the current directory or, where that
// cannot be, in that of the environment variable "TEMP". Status: success, one of those above or of
// line_source.h. Throws IoError where the input cannot be opened or the output not be written.
Status GRDRDG(std::string_view input, std::string_view output, grid_description& grid,
              grid_window& window);

// Whether the routines of the system read a grid in place: a plain standard grid of 4-byte floats,
// stored by rows, whose cells are true values. Every other grid is converted first.
[[nodiscard]] bool is_read_in_place(const grid_description& grid) noexcept;

// Converts the whole of a grid into a scratch file in the current directory.
//   stem     of the name of the scratch file.
//   grid     of `path`; out, on success: of the scratch file.
//   scratch  out: the file, which goes with this object.
// Status and exceptions as GRDRDG.
Status convert_to_scratch(std::string_view path, std::string_view stem, grid_description& grid,
                          platform::ScratchFile& scratch);

}  // namespace velmorankite
