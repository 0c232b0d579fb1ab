// Blend weights along lines of few and of many vertices: the cost must follow the cells near the
// line, not cells times segments.
// SPDX-License-Identifier: MIT
#include "merge/seam_band.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>

namespace velmorankite {
namespace {

constexpr std::int32_t cells = 4000;  // columns and rows of the window, one map unit each

stitch_parameters parameters_of(float blend_width) {
  stitch_parameters parameters;
  parameters.blend_width = blend_width;
  parameters.band_margin = blend_width;
  parameters.lattice = {0.0, 0.0, 1.0, 1.0, cells, cells};
  parameters.lattice_x_max = cells - 1;
  parameters.lattice_y_max = cells - 1;
  return parameters;
}

// From corner to corner in one long bend to the left and one to the right.
stitch_line bent_diagonal(std::int64_t vertex_count) {
  stitch_line line;
  for (std::int64_t i = 0; i < vertex_count; ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(vertex_count - 1);
    line.x.push_back(cells * (share + 0.05 * std::sin(2.0 * std::numbers::pi * share)));
    line.y.push_back(cells * share);
  }
  return line;
}

// Arguments: vertices, blend width in cells.
void seam_band_of_line(benchmark::State& state) {
  const stitch_parameters parameters = parameters_of(static_cast<float>(state.range(1)));
  const grid_description no_grid;  // read only where the window shall cover a grid
  for ([[maybe_unused]] auto step : state) {
    stitch_line line = bent_diagonal(state.range(0));
    seam_band band;
    const Outcome outcome = build_seam_band(parameters, no_grid, no_grid, line, band);
    if (outcome.failed()) {
      state.SkipWithError(outcome.why.c_str());
      break;
    }
    benchmark::DoNotOptimize(band.weights.data());
  }
}
BENCHMARK(seam_band_of_line)
    ->ArgNames({"vertices", "blend"})
    ->ArgsProduct({{50, 5000}, {10, 40}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmorankite
