// What a stitch is asked to do.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <string>

#include "formats/grid_description.h"
#include "grid/lattice.h"
#include "merge/outcome.h"

namespace velmorankite {

// A standard grid with its description.
struct input_grid {
  std::filesystem::path path;
  grid_description description;
};

// Distances are in map units; single precision where the rounding is part of the behaviour.
struct stitch_parameters {
  std::string report_name;           // the reports are named after it
  float correction_distance = 0.0F;  // above 0: the drifting part of the mismatch is removed too
  std::int32_t adjusted_grid = 1;    // 0: grid 1 moves onto grid 2; 1: grid 2 onto grid 1
  float blend_width = 0.0F;          // blend on the grid 2 side of the line
  float band_margin = 0.0F;          // extra width of the seam band beyond the blend
  Lattice lattice;                   // of the output
  double lattice_x_max = 0.0;        // these two only clip the working window
  double lattice_y_max = 0.0;
  std::filesystem::path output_path;
};

struct parameter_check {
  Outcome outcome;
  int definitions_line = 0;  // which of the 13 lines of the definitions holds the value, from 1
};

// Whether a stitch can be done with these values. Status: success, or stitch_impossible with the
// first field that will not do, its value and what was expected.
[[nodiscard]] parameter_check check_parameters(const stitch_parameters& parameters);

}  // namespace velmorankite
