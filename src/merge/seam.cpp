// SPDX-License-Identifier: MIT
#include "merge/seam.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <span>
#include <string>
#include <vector>

#include "condition/multi_level_fill.h"
#include "grid/cell_interpolation.h"
#include "grid/cell_position.h"
#include "merge/marked_weight.h"

namespace velmorankite {
namespace {

// Fewer common cells in the blend strip, or common points on the line, say nothing of a seam.
constexpr std::int64_t least_common_cells = 10;
constexpr std::int64_t least_samples = 10;

// One row of the window's cells.
std::span<float> row_of(platform::LargeArray<float>& cells, const Lattice& window,
                        std::int32_t row) {
  const auto width = static_cast<std::size_t>(window.x_count);
  return cells.span().subspan(static_cast<std::size_t>(row - 1) * width, width);
}

// Puts both grids on the window, dummies included, and marks the weights with their data. Gives
// the number of cells of the blend strip at which both have some.
std::int64_t resample(const input_grid& grid_1, const input_grid& grid_2, seam& result) {
  const Lattice& window = result.band.window.lattice;
  const std::vector<double> x = x_of_columns(window);
  CellInterpolator cells_1(grid_1.path, grid_1.description);
  CellInterpolator cells_2(grid_2.path, grid_2.description);
  result.filled_1 = platform::LargeArray<float>(static_cast<std::size_t>(window.cell_count()));
  result.filled_2 = platform::LargeArray<float>(static_cast<std::size_t>(window.cell_count()));
  std::int64_t overlap = 0;
  for (std::int32_t row = 1; row <= window.y_count; ++row) {
    const std::span<float> values_1 = row_of(result.filled_1, window, row);
    const std::span<float> values_2 = row_of(result.filled_2, window, row);
    cells_1.row(x, window.y(row), values_1);
    cells_2.row(x, window.y(row), values_2);
    overlap += mark_weights(values_1, values_2, row_of(result.band.weights, window, row));
  }
  return overlap;
}

std::string size_of(const Lattice& window) {
  return "working window of " + std::to_string(window.x_count) + " by " +
         std::to_string(window.y_count) + " cells";
}

bool fill(platform::LargeArray<float>& cells, const Lattice& window) {
  std::int64_t filled_count = 0;
  return !fill_levels(cells.span(), window, filled_count).failed();
}

std::vector<float> sample(const platform::LargeArray<float>& cells, const seam_band& band) {
  std::vector<float> values(band.sample_x.size());
  CellInterpolator(cells.span(), sense_bottom_up, band.window.lattice)
      .points(band.sample_x, band.sample_y, values);
  return values;
}

// Measures the mismatch of the filled grids along the line, reports it, and corrects what drifts.
Outcome measure(const stitch_parameters& parameters, seam& result) {
  const seam_band& band = result.band;
  const std::vector<float> values_1 = sample(result.filled_1, band);
  std::vector<float> values_2 = sample(result.filled_2, band);
  result.mismatch = measure_mismatch(values_1, values_2);
  write_mismatch_report(mismatch_report_path(parameters.report_name), band.sample_x, band.sample_y,
                        values_1, values_2);
  if (result.mismatch.sample_count < least_samples) {
    return impossible(std::to_string(result.mismatch.sample_count) +
                      " points of the stitch line hold data of both grids, " +
                      std::to_string(least_samples) + " are needed");
  }
  if (parameters.correction_distance > 0.0F) {
    seam_correction& correction = result.correction.emplace();
    if (Outcome outcome = build_seam_correction(parameters, band, values_1, values_2, correction);
        outcome.failed()) {
      return outcome;
    }
    result.mismatch.rms_corrected = residual_rms(correction, band, values_1, values_2);
  }
  return {};
}

// All that follows the band.
Outcome measure_on_window(const stitch_parameters& parameters, const input_grid& grid_1,
                          const input_grid& grid_2, seam& result) {
  const std::int64_t overlap = resample(grid_1, grid_2, result);
  if (overlap < least_common_cells) {
    return impossible(std::to_string(overlap) +
                      " cells of the blend strip hold data of both grids, " +
                      std::to_string(least_common_cells) + " are needed");
  }
  const Lattice& window = result.band.window.lattice;
  if (!fill(result.filled_1, window) || !fill(result.filled_2, window)) {
    return impossible("the holes of the grids cannot be filled on a " + size_of(window) +
                      ", 4 columns and 4 rows are needed");
  }
  return measure(parameters, result);
}

}  // namespace

Outcome GRDSTITCHW(const stitch_parameters& parameters, const input_grid& grid_1,
                   const input_grid& grid_2, stitch_line& line, seam& result) {
  if (Outcome outcome =
          build_seam_band(parameters, grid_1.description, grid_2.description, line, result.band);
      outcome.failed()) {
    return outcome;
  }
  try {
    return measure_on_window(parameters, grid_1, grid_2, result);
  } catch (const std::bad_alloc&) {
    return impossible("both grids on a " + size_of(result.band.window.lattice) +
                      " need more memory than there is");
  }
}

}  // namespace velmorankite
