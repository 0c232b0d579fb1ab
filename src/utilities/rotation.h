// A standard grid resampled onto a lattice that is rotated, shifted and scaled against it.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "grid/lattice.h"
#include "grid/status.h"
#include "utilities/source_grid.h"

namespace velmorankite {

// What to do. With X and Y the distances of an output cell from the output's pivot, its value is
// that of the input at
//   x = ( cos X + sin Y) / x_scale + x_pivot_in
//   y = (-sin X + cos Y) / y_scale + y_pivot_in
// so that the contents turn by the angle from X towards Y.
struct rotation_request {
  std::string_view input;   // plain standard grid, 4-byte floats or signed 2-byte integers
  std::string_view output;  // trailing blanks are dropped; "outfile.grd" if under 2 characters
  Lattice in;               // of the input: its counts must be those of its header
  Lattice out;
  float angle = 0.0F;        // degrees
  double x_pivot_out = 0.0;  // the point of the output that falls on the input's pivot, map units
  double y_pivot_out = 0.0;
  double x_pivot_in = 0.0;
  double y_pivot_in = 0.0;
  double x_scale = 1.0;  // of the output against the input, along the turned axes
  double y_scale = 1.0;
  std::int32_t sense_out = 1;  // 1: rows from the lowest Y, any other: from the highest
  float stat_min = 0.0F;       // go into the output's header as they are
  float stat_max = 0.0F;
};

// Resamples by the bilinear form that tolerates a missing corner (bilinear.h). The output has
// the kind of cells of the input, z base 0 and z mult 1.
// Status: success, or a resampling_... of source_grid.h: nothing is then written. Throws IoError
// for files that cannot be read or written, for an input that is cut, and for an output that would
// replace it.
Status GEOROT(const rotation_request& request);

// Resamples a grid of 4-byte floats by the Catmull-Rom cubic of cell_interpolation.h, on the
// lattice that its header tells; one of 2-byte integers goes to GEOROT with the lattice of the
// request. The counts of the request's input are not read.
//   mode    interpolation mode of GEO_CELL_INTERPOLATION: 2 logarithmic, 3 log-linear, any other
//           the values as they are.
// Status: as GEOROT, or that of GRDRDH for the input.
Status GEOROTD(const rotation_request& request, std::int32_t mode);

}  // namespace velmorankite
