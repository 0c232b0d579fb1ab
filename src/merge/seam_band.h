// Where on the output lattice a stitch has work to do: the working window, regular samples of the
// line, and a blend weight for every cell of the window.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <vector>

#include "formats/grid_description.h"
#include "merge/outcome.h"
#include "merge/sieve/blend_weights.h"
#include "merge/stitch_line.h"
#include "merge/stitch_parameters.h"
#include "merge/working_window.h"
#include "platform/large_array.h"

namespace velmorankite {

struct seam_band {
  working_window window;
  std::vector<double> sample_x;  // points on the line inside the window, one X cell apart
  std::vector<double> sample_y;
  platform::LargeArray<float> weights;  // as fill_blend_weights leaves them
  bool closed = false;                  // the line comes back on itself
  std::size_t repeated_count = 0;  // the last samples, if closed: on the first segment once more
};

// Builds the band.
//   grid_1, grid_2  with a correction distance above 0 the window covers the one that is adjusted.
//   line            in and out: a line that comes back to within one X cell of its start gets its
//                   second vertex appended.
// Status: success or stitch_impossible.
Outcome build_seam_band(const stitch_parameters& parameters, const grid_description& grid_1,
                        const grid_description& grid_2, stitch_line& line, seam_band& band);

}  // namespace velmorankite
