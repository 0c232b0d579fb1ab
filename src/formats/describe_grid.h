// Describing a grid file of any format.
// SPDX-License-Identifier: MIT
#pragma once
#include <string_view>

#include "formats/grid_description.h"
#include "grid/status.h"

namespace velmorankite {

inline constexpr Status name_too_short{-1};
inline constexpr Status file_missing{-1001};
inline constexpr Status file_empty{-1002};
inline constexpr Status format_unknown{-1005};
inline constexpr Status first_bytes_unreadable{-1006};
inline constexpr Status header_file_missing{-2001};

// Finds out the format of a file, by its extension and its first bytes, and fills the description
// from its header. The cells are not looked at: whether the file holds them shows when they are
// read.
//   file_name  path; trailing blanks and one trailing NUL are dropped.
//   grid       out: cleared, then filled as far as the format tells. On success
//              x_max = x_min + (x_count - 1) x x_cell, and the same along Y, at cell centres.
//   texts      out: names of the bands, and advice to the user about this file.
// Status: one of those above, of the format's reader, or of header_status.h for a header that is
// not sound. Throws IoError for a file that exists and cannot be opened.
Status GRDRDH(std::string_view file_name, grid_description& grid, grid_texts& texts);

}  // namespace velmorankite
