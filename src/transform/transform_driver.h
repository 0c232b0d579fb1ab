// The transform engine's one entry: from a grid file and a filter to a filtered grid file.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/status.h"
#include "transform/transform_request.h"
#include "transform/transform_status.h"

namespace velmorankite {

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
