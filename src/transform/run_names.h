// Names of the files of a transform run that outlast it: the log, the power spectrum, the
// components of a field, and the padded and FFT grids that a later run can use again.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "transform/transform_request.h"

namespace velmorankite {

struct run_names {
  std::string log;
  std::string power_stem;  // of the power spectrum files
};

// The log is named after the output grid, or after the reuse base where the output is a scratch
// grid (its name holds "~"), else after the filter.
[[nodiscard]] run_names name_run(const transform_request& request);

struct reuse_names {
  std::string padded;
  std::string spectrum;
};

// Names of the saved grids for a reuse base that is not blank: its stem, how the plane was taken
// out, the padding width.
[[nodiscard]] reuse_names name_reuse(const transform_request& request);

// The names under which the three components of a field are put out beside an output grid.
[[nodiscard]] std::vector<std::filesystem::path> component_names(std::string_view out_grid);

}  // namespace velmorankite
