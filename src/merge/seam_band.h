// Where on the output lattice a stitch has work to do: the working window, regular samples of the
// line, and a blend weight for every cell of the window.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "formats/grid_description.h"
#include "grid/lattice.h"
#include "grid/status.h"
#include "merge/stitch_line.h"
#include "merge/stitch_parameters.h"
#include "merge/working_window.h"
#include "platform/large_array.h"

namespace velmorankite {

// Weights of the cells that are no blend. The dummy marks a cell outside the band.
inline constexpr float weight_grid_1 = -2.0F;  // right of the line
inline constexpr float weight_grid_2 = -1.0F;  // left of the line, beyond the blend

struct seam_band {
  working_window window;
  std::vector<double> sample_x;  // points on the line inside the window, one X cell apart
  std::vector<double> sample_y;
  // Window columns by window rows, row 1 first: the dummy, weight_grid_1, weight_grid_2 or, in
  // the blend, the share of grid 1 from 0 to 1.
  platform::LargeArray<float> weights;
  bool closed = false;  // the line comes back on itself
};

inline constexpr Status seam_band_impossible{-1};

// Builds the band. A line that comes back to within one cell of its start gets its second vertex
// appended in `line`. Status: success or seam_band_impossible, then with one sentence in `why`.
Status build_seam_band(const stitch_parameters& parameters, const grid_description& grid_1,
                       const grid_description& grid_2, stitch_line& line, seam_band& band,
                       std::string& why);

}  // namespace velmorankite
