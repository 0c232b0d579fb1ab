// Placing a grid in a larger lattice and completing it by sweeps.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "condition/level_store.h"
#include "grid/grid_rows.h"
#include "grid/status.h"

namespace velmorankite {

// The working lattice does not hold the source, the source's file does not hold its cells, a sense
// is neither 1 nor -2, a cell size is not above 0, there is no output name; or no cell is valid.
inline constexpr Status extension_impossible{-1};

struct extension_request {
  std::int32_t storage_sense = sense_bottom_up;  // of source and output
  double x_min = 0.0;                            // centre of the lowest column of the source
  double y_min = 0.0;                            // and of its lowest row
  double x_cell = 0.0;
  double y_cell = 0.0;
  std::int32_t pass_limit = 0;     // above 0: an extension ends after the first pass beyond it
  std::int32_t x_count = 0;        // of the working lattice
  std::int32_t y_count = 0;        //
  std::int32_t column_offset = 0;  // columns and rows of the working lattice ahead of the source's
  std::int32_t row_offset = 0;     // first, rows in the order of the file
  std::string_view output_name;    // the grid to make
  bool extend = false;             // the whole lattice gets values, not the enclosed holes alone
};

// Writes a grid on a working lattice and fills it by sweeps where it has blanks. Data keep their
// coordinates.
//   source      standard grid of 4-byte floats, its rows counted in the order of the file.
//   minimum, maximum  out: of the valid cells of the source; 0 on failure.
//   background  in, out: what far cells are drawn to; no valid value: the mean of the source,
//               which is then handed out if a sweep runs.
//   filled_count  in, out: grows by the blank cells that got a mean.
//   most_cells_in_memory  a lattice with more cells is worked on by rows, with the same bits.
// Status: success or extension_impossible, then without an output. Throws IoError, for an output
// that is the source too.
Status GRDEXT(const RowFile& source, const extension_request& request, float& minimum,
              float& maximum, float& background, std::int64_t& filled_count,
              std::int64_t most_cells_in_memory = while_memory_lasts);

}  // namespace velmorankite
