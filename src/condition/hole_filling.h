// Filling the cells without data of a grid file.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "grid/status.h"

namespace velmorankite {

inline constexpr Status fill_no_valid_cell{-1};     // or fewer than 4 columns or rows
inline constexpr Status fill_input_unopened{-999};  // the input cannot be opened
inline constexpr Status sweep_road_missing{-1100};  // road 0, which this version does not have

// Writes a new standard grid in which the cells without data of another have values.
//   input_name    a standard grid of 4-byte floats.
//   output_name   the grid to make; blank: the input is filled in place. A name that means the
//                 input's place is refused.
//   road          not 0: every blank cell is filled from a pyramid of coarser copies. 0: only
//                 enclosed holes, by sweeps, which this version does not have.
//   limit         not used on either road.
//   minimum, maximum  out: 0; they go into the output's header.
//   filled_count  out: cells that got a value; on the multi-level road with the nodes of the
//                 coarser levels.
// Status: success, one of those above, or what GRDRDH gave for the input. Throws IoError for a
// grid that is no plain grid of floats and for a file operation that fails.
Status GRID_FILL(std::string_view input_name, std::string_view output_name, std::int32_t road,
                 std::int32_t limit, float& minimum, float& maximum, std::int64_t& filled_count);

}  // namespace velmorankite
