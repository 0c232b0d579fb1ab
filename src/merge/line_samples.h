// Regular samples of the stitch line.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "merge/outcome.h"
#include "merge/sieve/line_segments.h"
#include "merge/working_window.h"

namespace velmorankite {

// Walks the line from its first vertex in steps of the window's X cell, with the running distance
// in single precision, and keeps the points that lie in the window, limits included.
//   step_count  as measure_segments gives it; the walk may take 32 steps more.
//   x, y        out: the samples, map units.
// Status: success, or stitch_impossible for a line that cannot be walked.
Outcome sample_line(std::span<const line_segment> segments, std::int32_t step_count,
                    const working_window& window, std::vector<double>& x, std::vector<double>& y);

}  // namespace velmorankite
