// The road of a transform that passes a small operator over the padded grid.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/grid_rows.h"
#include "grid/status.h"
#include "platform/binary_file.h"
#include "transform/filter_parameters.h"
#include "transform/transform_log.h"
#include "transform/transform_request.h"

namespace velmorankite {

// Designs the operator of the filter, 2 x filter_width - 1 points each way, and replaces the rows
// of the padded grid by what it gives. The total gradient of the vertical integral, in either
// order, takes a second pass.
// Status: success, or transform_design_failed for a filter without an operator and for an operator
// larger than the padded grid. Throws IoError.
Status run_convolution_road(const transform_request& request, RowFile& padded,
                            filter_parameters& parameters, TransformLog& log);

}  // namespace velmorankite
