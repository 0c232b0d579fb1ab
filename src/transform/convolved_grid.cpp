// SPDX-License-Identifier: MIT
#include <algorithm>
#include <vector>

#include "transform/convolution.h"
#include "transform/convolution_design.h"
#include "transform/filter_index.h"
#include "transform/log_line.h"
#include "transform/products.h"
#include "transform/run_output.h"
#include "transform/transform_status.h"

namespace velmorankite {
namespace {

Status pass(std::int32_t filter_width, const convolution_grids& grids,
            const filter_parameters& parameters, TransformLog& log) {
  const bool symmetric = parameters.FilterNo < first_asymmetric_filter;
  const std::int32_t points = full_points(filter_width);
  const auto side = static_cast<std::size_t>(symmetric ? filter_width : points);
  std::vector<float> weights(side * side);
  const Status designed =
      WTDESIGN(parameters, points, weights, [&log](std::string_view line) { log.line(line); });
  if (designed.failed()) {
    log.line(log_line("Convolution coefficient calculation failed: ", designed.code));
    return transform_design_failed;
  }
  if (symmetric) {
    WTCONVS(weights, filter_width, parameters, grids);
  } else {
    WTCONVA(weights, points, grids);
  }
  return success;
}

}  // namespace

Status make_convolved_grid(transform_run& run, filter_parameters parameters) {
  const RowLayout& layout = run.padded.layout();
  const std::int32_t width = run.request.filter_width;
  // The operator must fit in the padded grid; this also keeps a wild width from taking memory.
  if (width < 1 || 2 * std::int64_t{width} - 1 > std::min(layout.x_count, layout.y_count)) {
    run.log.line(
        log_line("Convolution coefficient calculation failed: ", operator_size_invalid.code));
    return transform_design_failed;
  }
  const convolution_grids grids{run.padded, run.padded};
  Status status = pass(width, grids, parameters, run.log);
  const bool gradient = parameters.FilterNo == filter_total_gradient;
  if (!status.failed() && parameters.Opt2 == 1 &&
      (gradient || parameters.FilterNo == filter_vertical_integral)) {
    parameters.FilterNo = gradient ? filter_vertical_integral : filter_total_gradient;
    parameters.Par1 = gradient ? 1.0F : parameters.Par1;
    status = pass(width, grids, parameters, run.log);
  }
  if (!status.failed()) {
    put_out(run, [&run](std::int32_t row, std::span<float> cells) { run.padded.read(row, cells); });
  }
  return status;
}

}  // namespace velmorankite
