// What a transform run holds against its arguments before any work.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/status.h"
#include "platform/keep_apart.h"
#include "transform/filter_parameters.h"
#include "transform/transform_log.h"
#include "transform/transform_request.h"

namespace velmorankite {

// The input grid and what belongs to it.
[[nodiscard]] platform::named_files inputs_of(const transform_request& request);

// Logs the call, checks it, and loads the parameter set of the filter. Each refusal has its line
// in the log. Status: success or a status of TRSD.
Status check_request(const transform_request& request, TransformLog& log,
                     filter_parameters& parameters);

}  // namespace velmorankite
