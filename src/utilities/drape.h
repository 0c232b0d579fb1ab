// A standard grid whose columns are shifted along Y by the height of a profile.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "grid/lattice.h"
#include "grid/status.h"
#include "utilities/source_grid.h"

namespace velmorankite {

struct drape_request {
  std::string_view input;   // plain standard grid, 4-byte floats or signed 2-byte integers
  std::string_view output;  // trailing blanks are dropped; "outfile.grd" for 1 character
  Lattice out;
  std::int32_t sense_out = 1;         // 1: rows from the lowest Y, any other: from the highest
  std::span<const double> profile_x;  // map units, strictly ascending, at least 2
  std::span<const double> profile_y;  // as many: the height at each, map units
  double x_shift = 0.0;               // map units: contents move by minus the shift
  double y_shift = 0.0;
};

// Fits a cubic spline (CUBSPL, not-a-knot at both ends) through the profile; the output cell at
// (x, y) is the input's value at (x + x_shift, y - height(x) + y_shift), by the bilinear form that
// tolerates a missing corner (bilinear.h). Beyond the profile the height is that of its end. The
// output has all the fields of the input's header but the lattice and the sense.
// Status: success, or a resampling_... of source_grid.h: nothing is then written. Throws IoError
// for files that cannot be read or written, for an input that is cut, and for an output that would
// replace it.
Status GEODRAPE(const drape_request& request);

}  // namespace velmorankite
