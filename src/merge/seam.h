// The seam between two grids, measured: what must be known before a row of the output is written.
// SPDX-License-Identifier: MIT
#pragma once
#include <optional>

#include "merge/outcome.h"
#include "merge/seam_band.h"
#include "merge/seam_correction.h"
#include "merge/seam_mismatch.h"
#include "merge/stitch_line.h"
#include "merge/stitch_parameters.h"
#include "platform/large_array.h"

namespace velmorankite {

struct seam {
  seam_band band;  // its weights are marked with the data of both grids (marked_weight.h)
  platform::LargeArray<float> filled_1;  // grid 1 on the window without holes, row 1 first
  platform::LargeArray<float> filled_2;
  seam_mismatch mismatch;
  std::optional<seam_correction> correction;  // with a correction distance above 0
};

// Resamples both grids onto the working window, fills their holes there, measures the mismatch
// along the line, writes its report and, where a correction distance asks for it, the correction.
//   grid_1, grid_2  standard grids of 4-byte floats
//   line            gets its second vertex appended if it closes on itself
//   result          out
// Status: success or stitch_impossible. That is a band that cannot be built, fewer than 10 cells of
// the blend strip or fewer than 10 points of the line at which both grids have data, and a window
// that cannot be filled; nothing is left of it but the report, once the line is measured. Throws
// IoError.
Outcome GRDSTITCHW(const stitch_parameters& parameters, const input_grid& grid_1,
                   const input_grid& grid_2, stitch_line& line, seam& result);

}  // namespace velmorankite
