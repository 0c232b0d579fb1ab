// What a transform run holds against its arguments before any work.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>

#include "grid/status.h"
#include "transform/filter_parameters.h"
#include "transform/transform_log.h"
#include "transform/transform_request.h"

namespace velmorankite {

// Whether a file of the run would fall on the input grid, or on a file that belongs to it.
[[nodiscard]] bool is_input(const std::filesystem::path& path, const transform_request& request);

// Logs the call, checks it, and loads the parameter set of the filter. Each refusal has its line
// in the log. Status: success or a status of TRSD.
Status check_request(const transform_request& request, TransformLog& log,
                     filter_parameters& parameters);

}  // namespace velmorankite
