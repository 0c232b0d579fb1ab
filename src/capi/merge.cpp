// The C interface of the merge.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/texts.h"
#include "merge/stitch.h"
#include "merge/stitch_line.h"
#include "merge/stitch_parameters.h"

using namespace velmorankite::capi;

namespace {

velmorankite::stitch_line line_in(const double* x, const double* y, std::int32_t count) {
  const std::ptrdiff_t vertices = std::max(count, 0);
  return {std::vector<double>(x, x + vertices), std::vector<double>(y, y + vertices)};
}

// Vertices from `first` on, counted from 0.
void line_out(const velmorankite::stitch_line& line, std::size_t first, double* x, double* y) {
  const auto skip = static_cast<std::ptrdiff_t>(std::min(first, line.x.size()));
  std::copy(line.x.begin() + skip, line.x.end(), x + skip);
  std::copy(line.y.begin() + skip, line.y.end(), y + skip);
}

}  // namespace

void RDSTITCHDXF(const std::int32_t* mode, const char* path, const double* minimum_distance,
                 std::int32_t* vertex_count, double* x, double* y, std::int32_t* status,
                 std::size_t path_length) {
  velmorankite::stitch_line line;
  *status = guarded("RDSTITCHDXF", [&] {
    return velmorankite::RDSTITCHDXF(text_in(path, path_length), *minimum_distance, line);
  });
  *vertex_count = static_cast<std::int32_t>(line.x.size());
  if (*mode > 0) {
    line_out(line, 0, x, y);
  }
}

void GRIDSTITCH(const char* report_name, const char* grid_1, const std::int32_t* grid_1_ints,
                const double* grid_1_reals, const char* grid_2, const std::int32_t* grid_2_ints,
                const double* grid_2_reals, const float* correction_distance,
                const std::int32_t* adjusted_grid, const float* blend_width,
                const float* band_margin, std::int32_t* vertex_count, double* x, double* y,
                const char* output, const double* out_x_min, const double* out_x_max,
                const double* out_x_cell, const std::int32_t* out_x_count, const double* out_y_min,
                const double* out_y_max, const double* out_y_cell, const std::int32_t* out_y_count,
                std::int32_t* status, std::size_t report_name_length, std::size_t grid_1_length,
                std::size_t grid_2_length, std::size_t output_length) {
  *status = guarded("GRIDSTITCH", [&] {
    velmorankite::stitch_parameters parameters;
    parameters.report_name = text_in(report_name, report_name_length);
    parameters.correction_distance = *correction_distance;
    parameters.adjusted_grid = *adjusted_grid;
    parameters.blend_width = *blend_width;
    parameters.band_margin = *band_margin;
    parameters.lattice = {*out_x_min,  *out_y_min,   *out_x_cell,
                          *out_y_cell, *out_x_count, *out_y_count};
    parameters.lattice_x_max = *out_x_max;
    parameters.lattice_y_max = *out_y_max;
    parameters.output_path = text_in(output, output_length);
    const velmorankite::input_grid first{text_in(grid_1, grid_1_length),
                                         description_in(grid_1_ints, grid_1_reals)};
    const velmorankite::input_grid second{text_in(grid_2, grid_2_length),
                                          description_in(grid_2_ints, grid_2_reals)};
    velmorankite::stitch_line line = line_in(x, y, *vertex_count);
    const std::size_t given = line.x.size();
    velmorankite::stitch_summary summary;
    velmorankite::Outcome outcome =
        velmorankite::GRIDSTITCH(parameters, first, second, line, summary);
    line_out(line, given, x, y);
    *vertex_count = static_cast<std::int32_t>(line.x.size());
    return outcome;
  });
}
