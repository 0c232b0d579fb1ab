// The transform engine's one entry: from a grid file and a filter to a filtered grid file.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/status.h"
#include "transform/transform_request.h"

namespace velmorankite {

inline constexpr Status transform_arguments_invalid{-1001};  // a name, the sense, a cell size
inline constexpr Status transform_not_available{-1002};      // a road or filter of a later version
inline constexpr Status transform_padding_invalid{-1003};
inline constexpr Status transform_road_unknown{-1004};  // FftMode above 1
inline constexpr Status transform_conversion_failed{-1006};
inline constexpr Status transform_input_unopened{-1007};
inline constexpr Status transform_fill_failed{-1008};
inline constexpr Status transform_filter_refused{-1010};  // the catalogue's own checks
inline constexpr Status transform_row_memory_fft{-1012};
inline constexpr Status transform_row_memory{-1013};  // convolution road
inline constexpr Status transform_array_memory{-1015};
inline constexpr Status transform_padding_failed{-1016};
inline constexpr Status transform_design_failed{-1023};

// Filters a grid. The output has the lattice of the input and its dummies, and appears when it is
// complete; the run writes a log beside it (run_names.h), the power spectrum of the FFT road, and
// with `reuse` above 0 the padded grid and its spectrum for later runs.
//   range  out: smallest and largest value of the output; OutMax is 1 and OutMin unchanged where
//          no output was made.
// Status: success, the number of filled cells for the hole filter, or one of those above. Throws
// IoError. On every path the log ends with "Transform complete" and no scratch file stays, but for
// the saved grids of a run with `reuse` other than 0 that has no base to name them after.
// Two runs share nothing but the file system.
Status TRSD(const transform_request& request, transform_range& range);

}  // namespace velmorankite
