// Joining two grids along a line: the merged grid, row by row.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "merge/outcome.h"
#include "merge/seam_mismatch.h"
#include "merge/stitch_line.h"
#include "merge/stitch_parameters.h"
#include "platform/keep_apart.h"

namespace velmorankite {

// What there is to tell of a stitch that was done.
struct stitch_summary {
  seam_mismatch mismatch;
  std::int64_t blended_cells = 0;  // of the output, those that hold a blend of both grids
  bool corrected = false;          // the drifting part of the mismatch was removed too
};

// What a stitch writes, the output grid first. No two of them may mean one place, and none the
// place of an input.
[[nodiscard]] platform::named_files results_of(const stitch_parameters& parameters);

// Joins two grids along a line and writes the merged grid, `<stem>_mismatch.dat` and, with a
// correction distance above 0, the correction grid with its log.
//   parameters      see stitch_parameters.h; values with which no stitch can be done are refused
//   grid_1, grid_2  standard grids of 4-byte floats, grid 1 on the right of the line
//   line            gets its second vertex appended if it closes on itself
//   summary         out
// Status: success or stitch_impossible, then without a merged grid. That appears under its name
// only when it is complete. Throws IoError, ahead of any work where a result would replace a grid,
// a file that belongs to one, or another result.
// Memory: three floats a cell of the working window and the pyramid of one fill beside some rows;
// the grids themselves are read by rows, and may be much larger.
Outcome GRIDSTITCH(const stitch_parameters& parameters, const input_grid& grid_1,
                   const input_grid& grid_2, stitch_line& line, stitch_summary& summary);

}  // namespace velmorankite
