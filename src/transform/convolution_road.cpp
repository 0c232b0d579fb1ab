// SPDX-License-Identifier: MIT
#include "transform/convolution_road.h"

#include <algorithm>
#include <vector>

#include "transform/convolution.h"
#include "transform/convolution_design.h"
#include "transform/filter_index.h"
#include "transform/log_line.h"
#include "transform/transform_status.h"

namespace velmorankite {
namespace {

Status pass(std::int32_t filter_width, const convolution_grids& grids,
            filter_parameters& parameters, TransformLog& log) {
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

Status run_convolution_road(const transform_request& request, RowFile& padded,
                            filter_parameters& parameters, TransformLog& log) {
  const RowLayout& layout = padded.layout();
  // The operator must fit in the padded grid; this also keeps a wild width from taking memory.
  if (request.filter_width < 1 ||
      2 * std::int64_t{request.filter_width} - 1 > std::min(layout.x_count, layout.y_count)) {
    log.line(log_line("Convolution coefficient calculation failed: ", operator_size_invalid.code));
    return transform_design_failed;
  }
  const convolution_grids grids{padded, padded};
  if (const Status status = pass(request.filter_width, grids, parameters, log); status.failed()) {
    return status;
  }
  const bool gradient = request.filter == filter_total_gradient;
  if (parameters.Opt2 != 1 || (!gradient && request.filter != filter_vertical_integral)) {
    return success;
  }
  parameters.FilterNo = gradient ? filter_vertical_integral : filter_total_gradient;
  parameters.Par1 = gradient ? 1.0F : parameters.Par1;
  return pass(request.filter_width, grids, parameters, log);
}

}  // namespace velmorankite
