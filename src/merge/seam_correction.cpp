// SPDX-License-Identifier: MIT
#include "merge/seam_correction.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "condition/line_nodes.h"
#include "condition/multi_level_fill.h"
#include "formats/describe_grid.h"
#include "grid/cell_interpolation.h"
#include "grid/dummy.h"
#include "grid/scratch_names.h"
#include "grid/standard_header.h"
#include "merge/seam_mismatch.h"
#include "merge/status_table.h"
#include "platform/binary_file.h"
#include "platform/large_array.h"
#include "platform/scratch_file.h"
#include "transform/filter_index.h"
#include "transform/run_names.h"
#include "transform/transform_driver.h"

namespace velmorankite {
namespace {

// Rounds to the nearest cell; just short of a half, so that a point half way goes to the lower.
constexpr double nearest_cell = static_cast<double>(1.49999F);

std::int64_t cell_index(double offset, double cell_size, std::int32_t count) {
  const double place =
      std::clamp(offset / cell_size + nearest_cell, 1.0, static_cast<double>(count));
  return static_cast<std::int64_t>(place) - 1;
}

// Place in the rows of the window of the cell that a point lies in.
std::size_t cell_of(const line_values& points, std::size_t i, const Lattice& window) {
  const std::int64_t column = cell_index(points.x[i] - window.x_min, window.x_cell, window.x_count);
  const std::int64_t row = cell_index(points.y[i] - window.y_min, window.y_cell, window.y_count);
  return static_cast<std::size_t>(row * window.x_count + column);
}

// The cells of the points in their order, of a closed line those of one turn.
line_cells cells_along(const line_values& points, const Lattice& window, bool closed) {
  line_cells line{{}, closed};
  for (std::size_t i = 0; i < points.value.size() - points.repeated; ++i) {
    line.cells.push_back(cell_of(points, i, window));
  }
  return line;
}

line_values residuals_of(const seam_band& band, std::span<const float> grid_1,
                         std::span<const float> grid_2) {
  line_values kept;
  for (std::size_t i = 0; i < grid_1.size(); ++i) {
    if (is_valid(grid_1[i]) && is_valid(grid_2[i])) {
      kept.x.push_back(band.sample_x[i]);
      kept.y.push_back(band.sample_y[i]);
      kept.value.push_back(grid_1[i] - grid_2[i]);
      kept.repeated += i + band.repeated_count >= grid_1.size() ? 1 : 0;
    }
  }
  return kept;
}

// Index of a sample beyond the ends of the line.
std::int64_t within_line(std::int64_t i, std::int64_t count, bool closed) {
  if (closed) {
    return i < 0 ? i + count : i >= count ? i - count : i;
  }
  return std::clamp<std::int64_t>(i, 0, count - 1);
}

// The continuation by which the spread residuals become smooth.
transform_request continuation(const std::filesystem::path& from, const std::string& to,
                               float distance) {
  constexpr std::int32_t margin_width = 11;  // a margin of 34 cells
  transform_request request;
  request.in_grid = from.string();
  request.out_grid = to;
  request.filter = filter_continuation;
  request.pad_width = margin_width;
  request.filter_width = margin_width;
  request.detrend = detrend_keeps_plane;
  request.fft_mode = fft_mode_memory;
  request.int_par = {0, 1, 0};
  request.real_par = {distance};
  request.power_file = false;
  return request;
}

// The residuals spread over the window from the cells of the line, as a scratch grid.
bool write_spread_residuals(const line_values& points, const Lattice& window, bool closed,
                            const std::filesystem::path& path) {
  platform::LargeArray<float> cells(static_cast<std::size_t>(window.cell_count()));
  std::fill(cells.begin(), cells.end(), dummy);
  place_on_window(points, window, cells.span());
  std::int64_t filled_count = 0;
  const line_cells line = cells_along(points, window, closed);
  if (fill_levels(cells.span(), window, filled_count, line).failed()) {
    return false;
  }
  platform::BinaryFile file(path, platform::open_mode::create);
  OUTPUT_GEOSOFT_HEADER(file, float_grid_header(window));
  file.write_values(standard_header_bytes + 1, std::span<const float>(cells.span()));
  file.close();
  return true;
}

// Each step with words of its own: the same number means other things in other routines.
Outcome describe(const std::string& name, grid_description& grid) {
  grid_texts texts;
  const Status status = GRDRDH(name, grid, texts);
  if (status.failed()) {
    return impossible(name +
                      " cannot be read back: " + status_words(merge_statuses, "GRDRDH", status));
  }
  return {};
}

Outcome continue_residuals(const std::filesystem::path& from, const std::string& to,
                           float distance) {
  transform_request request = continuation(from, to, distance);
  if (Outcome outcome = describe(request.in_grid, request.grid); outcome.failed()) {
    return outcome;
  }
  transform_range range;
  const Status status = TRSD(request, range);
  if (status.failed()) {
    return impossible("the continuation of the correction failed: " +
                      status_words(merge_statuses, "TRSD", status));
  }
  return {};
}

}  // namespace

std::filesystem::path correction_grid_path(std::string_view report_name) {
  return report_stem(report_name) + "_stitch_grid_smooth.grd";
}

std::filesystem::path correction_log_path(std::string_view report_name) {
  return name_run(continuation({}, correction_grid_path(report_name).string(), 0.0F)).log;
}

std::int32_t smoothing_half_width(float correction_distance, double x_cell,
                                  std::int32_t sample_count) {
  constexpr std::int32_t least = 5;
  const double wanted = static_cast<double>(correction_distance) / x_cell * 2.0 + 1.0;
  if (wanted < least) {
    return least;
  }
  // Compared ahead of the cut to an integer, which could not hold a distance of many cells.
  const std::int32_t half_length = sample_count / 2;
  return wanted >= half_length + 1.0 ? sample_count / 4 : static_cast<std::int32_t>(wanted);
}

std::vector<float> smooth_along_line(std::span<const float> residuals, std::int32_t half_width,
                                     bool closed) {
  const auto count = static_cast<std::int64_t>(residuals.size());
  std::vector<float> smooth(residuals.size());
  for (std::int64_t centre = 0; centre < count; ++centre) {
    float sum = 0.0F;
    for (std::int64_t i = centre - half_width; i <= centre + half_width; ++i) {
      sum += residuals[static_cast<std::size_t>(within_line(i, count, closed))];
    }
    smooth[static_cast<std::size_t>(centre)] = sum / static_cast<float>(2 * half_width + 1);
  }
  return smooth;
}

void place_on_window(const line_values& points, const Lattice& window, std::span<float> cells) {
  for (std::size_t i = 0; i < points.value.size(); ++i) {
    if (is_valid(points.value[i])) {
      cells[cell_of(points, i, window)] = points.value[i];
    }
  }
}

Outcome build_seam_correction(const stitch_parameters& parameters, const seam_band& band,
                              std::span<const float> grid_1, std::span<const float> grid_2,
                              seam_correction& correction) {
  line_values points = residuals_of(band, grid_1, grid_2);
  const std::int32_t half_width =
      smoothing_half_width(parameters.correction_distance, parameters.lattice.x_cell,
                           static_cast<std::int32_t>(points.value.size()));
  points.value = smooth_along_line(points.value, half_width, band.closed);

  const platform::ScratchFile spread = new_scratch("~grdfeather_fill");
  if (!write_spread_residuals(points, band.window.lattice, band.closed, spread.path())) {
    return impossible("the mismatch along the line cannot be spread over the working window");
  }
  const std::string output = correction_grid_path(parameters.report_name).string();
  // Both go if the continuation fails.
  platform::ScratchFile grid(output);
  platform::ScratchFile log(correction_log_path(parameters.report_name));
  if (Outcome outcome = continue_residuals(spread.path(), output, parameters.correction_distance);
      outcome.failed()) {
    return outcome;
  }
  if (Outcome outcome = describe(output, correction.description); outcome.failed()) {
    return outcome;
  }
  correction.path = output;
  grid.keep();
  log.keep();
  return {};
}

double residual_rms(const seam_correction& correction, const seam_band& band,
                    std::span<const float> grid_1, std::span<const float> grid_2) {
  std::vector<float> added(band.sample_x.size());
  CellInterpolator(correction.path, correction.description)
      .points(band.sample_x, band.sample_y, added);
  double squares = 0.0;
  std::int64_t count = 0;
  for (std::size_t i = 0; i < added.size(); ++i) {
    if (is_valid(grid_1[i]) && is_valid(grid_2[i])) {
      const double c = is_valid(added[i]) ? static_cast<double>(added[i]) : 0.0;
      const double residual = static_cast<double>(grid_1[i] - grid_2[i]) - c;
      squares += residual * residual;
      ++count;
    }
  }
  return count > 0 ? std::sqrt(squares / static_cast<double>(count)) : 0.0;
}

}  // namespace velmorankite
