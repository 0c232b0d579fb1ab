// The drifting part of the mismatch along the stitch line, as a smooth surface over the working
// window that the merge adds to the grid that is moved.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

#include "formats/grid_description.h"
#include "grid/lattice.h"
#include "merge/outcome.h"
#include "merge/seam_band.h"
#include "merge/stitch_parameters.h"

namespace velmorankite {

// Half width, in samples, of the running mean along the line: two correction distances, at least
// 5 samples, and a quarter of a line that is too short for that.
[[nodiscard]] std::int32_t smoothing_half_width(float correction_distance, double x_cell,
                                                std::int32_t sample_count);

// Running mean over 2 x half_width + 1 residuals, summed in single precision. Beyond the ends of
// an open line its end values stand; a closed line goes on round.
[[nodiscard]] std::vector<float> smooth_along_line(std::span<const float> residuals,
                                                   std::int32_t half_width, bool closed);

// Points of the line with their values.
struct line_values {
  std::vector<double> x;
  std::vector<double> y;
  std::vector<float> value;
  std::size_t repeated = 0;  // the last ones, at which a closed line is at its beginning once more
};

// Puts each value into the cell of the window that its point lies in, a later one over an earlier.
//   cells  rows of `window`, the lowest first.
void place_on_window(const line_values& points, const Lattice& window, std::span<float> cells);

// A grid of the correction, on the working window.
struct seam_correction {
  std::filesystem::path path;
  grid_description description;
};

// "<stem>_stitch_grid_smooth.grd".
[[nodiscard]] std::filesystem::path correction_grid_path(std::string_view report_name);
// Where the log of its continuation stands.
[[nodiscard]] std::filesystem::path correction_log_path(std::string_view report_name);

// Builds the correction grid `<stem>_stitch_grid_smooth.grd` beside the report: the residuals are
// smoothed along the line, spread over the window, and continued upwards by the correction
// distance. The log of the continuation stays beside it.
//   grid_1, grid_2  values at the samples of the band, grid_2 on the level of grid 1; a sample at
//                   which one of them is no value is left out.
// Status: success or stitch_impossible, then with nothing left. Throws IoError, with nothing
// left either.
Outcome build_seam_correction(const stitch_parameters& parameters, const seam_band& band,
                              std::span<const float> grid_1, std::span<const float> grid_2,
                              seam_correction& correction);

// Root mean square of what remains at the samples once the correction is added as well.
[[nodiscard]] double residual_rms(const seam_correction& correction, const seam_band& band,
                                  std::span<const float> grid_1, std::span<const float> grid_2);

}  // namespace velmorankite
