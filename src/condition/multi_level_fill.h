// Filling every blank cell of a grid from a pyramid of coarser copies of it.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "condition/level_store.h"
#include "condition/line_nodes.h"
#include "formats/grid_description.h"
#include "grid/lattice.h"
#include "grid/status.h"
#include "platform/keep_apart.h"

namespace velmorankite {

// The working lattice has fewer than 4 columns or rows, does not hold the whole input or is not
// held by the array; or no cell has a value.
inline constexpr Status fill_impossible{-1};

// A multi-level fill of a grid file.
struct fill_request {
  std::string_view input_name;
  grid_description input;          // as GRDRDH gave it
  std::int32_t x_count = 0;        // of the working lattice, at least the input's with the offsets
  std::int32_t y_count = 0;        //
  std::int32_t column_offset = 0;  // columns and rows of the working lattice ahead of the first
  std::int32_t row_offset = 0;     // input cell
  // The memory flag: y_count rows of x_count cells, the lowest row first. Where they are given,
  // the input cells are taken from them and not from the file, each at its place on the working
  // lattice, and the filled lattice is left in them. Empty: not used.
  std::span<float> cells;
  std::string_view output_name;  // blank: the filled cells go back to the input file
  float minimum = 0.0F;          // stored as they are in the header of the output
  float maximum = 0.0F;
  platform::named_files others{};  // of the caller's, beside the input; no file of the fill comes
                                   // in their place
};

// Gives every blank cell of a standard grid of 4-byte floats a value and keeps all others, in time
// and memory proportional to the grid. With offsets, the margin round the data is filled too.
//   filled_count  out: nodes that got a value, over level 0 and all coarser levels.
//   most_cells_in_memory  a level with more cells than this is worked on by rows, as is one for
//                 which the system has no memory: level 0 from the input file, each coarser level
//                 through a file of its own in the current directory.
// The output appears under its name only when it is complete. In place, the input is replaced as
// a whole when all is done, and keeps what stands in it beside its cells.
// Status: success or fill_impossible, then without an output. Throws IoError, also for an output
// or a level that would replace the input by whatever name; an array that was given then holds
// nothing in particular.
Status GRDMIPMAP(const fill_request& request, std::int64_t& filled_count,
                 std::int64_t most_cells_in_memory = while_memory_lasts);

// The same fill for a grid in memory: `cells` holds the rows of `lattice`, the lowest first, and
// keeps its blanks on fill_impossible. A grid without a blank costs a look at its cells; nothing
// is then filled on any level.
//   filled_count  out: as above; the nodes beside a line are not of them.
//   line          data along a line, of which the fill is to see all: add_line_nodes comes first.
// Status: success or fill_impossible, also for a line with cells that are not on the lattice.
Status fill_levels(std::span<float> cells, const Lattice& lattice, std::int64_t& filled_count,
                   const line_cells& line = {});

}  // namespace velmorankite
