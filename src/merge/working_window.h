// The part of the output lattice on which a stitch has work to do.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "formats/grid_description.h"
#include "grid/lattice.h"
#include "merge/outcome.h"
#include "merge/stitch_line.h"
#include "merge/stitch_parameters.h"

namespace velmorankite {

struct working_window {
  Lattice lattice;     // of the window: its origin is that of its first cell
  double x_max = 0.0;  // limits, which samples of the line may reach
  double y_max = 0.0;
  std::int32_t first_column = 1;  // on the output lattice, from 1
  std::int32_t last_column = 0;
  std::int32_t first_row = 1;
  std::int32_t last_row = 0;
};

// The half width of the seam band in map units, a single-precision sum.
[[nodiscard]] inline float band_reach(const stitch_parameters& parameters) noexcept {
  return parameters.blend_width + parameters.band_margin;
}

// Snaps the surroundings of the line, its band on every side, to the output lattice; with a
// correction distance above 0 the limits of the adjusted grid too.
//   adjusted  the grid that is moved; only its limits count, and only with a correction.
//   line      2 vertices or more.
// Status: success, or stitch_impossible where there is no window.
Outcome snap_window(const stitch_parameters& parameters, const grid_description& adjusted,
                    const stitch_line& line, working_window& window);

}  // namespace velmorankite
