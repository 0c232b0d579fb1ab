// The stitch line as a chain of directed segments.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "merge/outcome.h"
#include "merge/stitch_line.h"

namespace velmorankite {

// How the line turns at a vertex, seen along it. Straight on counts as a left bend.
enum class bend : std::int8_t { left = -1, none = 0, right = 1 };

// From one vertex to the next. A segment whose length rounds to 0 has no direction: its ux and uy
// are not finite numbers.
struct line_segment {
  double x;  // first vertex, map units
  double y;
  double ux;  // direction: coordinate differences divided by the rounded length
  double uy;
  double length;  // map units, rounded to single precision
  bend at_start;  // none at the two ends of the line
};

// Appends the second vertex to a line whose last vertex lies within `distance` of its first, so
// that the join gets a bend like every other vertex. Gives whether it did.
bool close_line(stitch_line& line, double distance);

// The segments of a line of 2 vertices or more.
//   segments    out: one less than vertices.
//   step_count  out: steps of `step` map units that the line should take, from its total length
//               in single precision.
// Status: success, or stitch_impossible for a line of fewer than 4 steps or of more than can be
// walked.
Outcome measure_segments(const stitch_line& line, double step, std::vector<line_segment>& segments,
                         std::int32_t& step_count);

}  // namespace velmorankite
