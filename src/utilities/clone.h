// A new standard grid on the lattice of an existing one.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "formats/grid_description.h"
#include "grid/status.h"
#include "platform/binary_file.h"

namespace velmorankite {

// What the cells of the new grid hold; any mode that is not named here gives dummies.
inline constexpr std::int32_t clone_copy = 0;
inline constexpr std::int32_t clone_zeros = 1;
inline constexpr std::int32_t clone_dummies = -1;

// Makes a grid with the lattice, the storage sense and the header statistics of another, in any
// mode. The target appears only when it is complete, and replaces a file of its name.
//   source_path  standard grid that is not compressed; trailing blanks are dropped. Not changed.
//   target_path  "outfile.grd" if fewer than 2 characters are left of it.
//   mode         copy, zeros or dummies. Cells of 4 bytes are taken as floats and all others as
//                16-bit integers, for which alone this is meant beside floats.
// Status: success, or that of GRDRDH for the source. Throws IoError if the source is no plain
// standard grid that its file holds whole, if both paths mean one file, or if a copy is asked
// for in a sense that the header cannot tell (other than 1 and -2).
Status GEOCLONE(std::string_view source_path, std::string_view target_path, std::int32_t mode);

// The cells of a clone, stored row after stored row, `rows_at_once` of them (at least 1) to a read
// and a write. The result does not depend on `rows_at_once`. Throws IoError.
void clone_cells(const platform::BinaryFile& source, platform::BinaryFile& target,
                 const grid_ints& layout, std::int32_t mode, std::int32_t rows_at_once);

}  // namespace velmorankite
