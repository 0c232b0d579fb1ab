// Filling the cells without data of a grid file.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "condition/level_store.h"
#include "formats/grid_description.h"
#include "grid/status.h"

namespace velmorankite {

// No cell is valid; from coarser copies also fewer than 4 columns or rows.
inline constexpr Status fill_no_valid_cell{-1};
inline constexpr Status fill_input_unopened{-999};  // the input cannot be opened

enum class fill_road {
  sweeps,  // enclosed holes alone, by local means from their rims inwards
  levels   // every blank cell, from a pyramid of coarser copies
};

// The filling of a grid that has been described.
struct hole_fill {
  std::string_view input_name;
  grid_description input;        // as GRDRDH gave it
  std::string_view output_name;  // blank: the input is filled in place
  fill_road road = fill_road::levels;
};

// Writes a new standard grid in which the cells without data of another have values.
//   minimum, maximum  out: by sweeps those of the valid cells, else 0; they go into the output's
//                 header.
//   filled_count  out: cells that got a value; on the road of levels with the nodes of the coarser
//                 ones.
//   most_cells_in_memory  as in GRDMIPMAP; by sweeps the grid is then worked on by rows.
// In place, all that is not a cell stays as it was. Status: success or one of those above, then
// without an output. Throws IoError for cells other than 4-byte floats, a sense other than 1 and
// -2, and a file operation that fails.
Status fill_grid(const hole_fill& request, float& minimum, float& maximum,
                 std::int64_t& filled_count,
                 std::int64_t most_cells_in_memory = while_memory_lasts);

// The same for a grid by its name.
//   input_name    a plain standard grid of 4-byte floats.
//   output_name   the grid to make; blank: the input is filled in place. A name that means the
//                 input's place is refused.
//   road          0: sweeps; all others: levels.
//   limit         not used on either road.
//   others        as fill_grid.
// Status: that of fill_grid, or what GRDRDH gave for the input. Throws IoError also for a grid
// that is not plain or has scaled cells.
Status GRID_FILL(std::string_view input_name, std::string_view output_name, std::int32_t road,
                 std::int32_t limit, float& minimum, float& maximum, std::int64_t& filled_count);

}  // namespace velmorankite
