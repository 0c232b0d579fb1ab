// SPDX-License-Identifier: MIT
#include "merge/seam_band.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <span>
#include <vector>

#include "merge/line_samples.h"
#include "merge/sieve/line_segments.h"

namespace velmorankite {
namespace {

// How many samples of the band lie on the last segment of its line: the walk up to there is the
// same without it.
std::size_t samples_on_last(std::span<const line_segment> segments, std::int32_t step_count,
                            const seam_band& band) {
  std::vector<double> x;
  std::vector<double> y;
  const Outcome outcome =
      sample_line(segments.first(segments.size() - 1), step_count, band.window, x, y);
  return outcome.failed() ? 0 : band.sample_x.size() - x.size();
}

Outcome build(const stitch_parameters& parameters, const grid_description& adjusted,
              stitch_line& line, seam_band& band) {
  if (Outcome outcome = snap_window(parameters, adjusted, line, band.window); outcome.failed()) {
    return outcome;
  }
  const Lattice& window = band.window.lattice;
  band.closed = close_line(line, window.x_cell);
  std::vector<line_segment> segments;
  std::int32_t step_count = 0;
  if (Outcome outcome = measure_segments(line, window.x_cell, segments, step_count);
      outcome.failed()) {
    return outcome;
  }
  if (Outcome outcome =
          sample_line(segments, step_count, band.window, band.sample_x, band.sample_y);
      outcome.failed()) {
    return outcome;
  }
  if (band.closed) {
    band.repeated_count = samples_on_last(segments, step_count, band);
  }
  band.weights = platform::LargeArray<float>(static_cast<std::size_t>(window.cell_count()));
  fill_blend_weights(segments, window, parameters.blend_width, band_reach(parameters),
                     band.weights.span());
  return {};
}

}  // namespace

Outcome build_seam_band(const stitch_parameters& parameters, const grid_description& grid_1,
                        const grid_description& grid_2, stitch_line& line, seam_band& band) {
  band = {};
  try {
    return build(parameters, parameters.adjusted_grid == 0 ? grid_1 : grid_2, line, band);
  } catch (const std::bad_alloc&) {
    return impossible("the working window of " + std::to_string(band.window.lattice.x_count) +
                      " by " + std::to_string(band.window.lattice.y_count) +
                      " cells and the samples of the line need more memory than there is");
  }
}

}  // namespace velmorankite
