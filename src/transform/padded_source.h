// The padded grid of a run: one that an earlier run saved, or made anew.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <span>
#include <string>

#include "condition/plane_fit.h"
#include "formats/grid_description.h"
#include "grid/status.h"
#include "transform/fft_array.h"
#include "transform/transform_log.h"
#include "transform/transform_request.h"

namespace velmorankite {

// The input of a run as a standard grid of floats: the grid that was asked for, or what it was
// converted to.
struct transform_input {
  std::string path;
  grid_description grid;
};

// What the padded grid was made with.
struct padded_grid_facts {
  plane trend;
  float average = 0.0F;
};

// Puts the padded grid under `scratch`: with `reuse` above 0 a copy of the saved grid `saved`, if
// that was made of this input in this way, else a new one, which is then saved under that name.
// A saved grid that does not fit, or cannot be copied, is deleted. Logs what it does. `lent` is
// memory that the call may write over.
// Status: success or transform_padding_failed. Throws IoError.
Status provide_padded_grid(const transform_request& request, const transform_input& input,
                           const fft_geometry& geometry, const std::string& saved,
                           const std::filesystem::path& scratch, TransformLog& log,
                           std::span<float> lent, padded_grid_facts& facts);

}  // namespace velmorankite
