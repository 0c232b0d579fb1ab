// The tests that decide whether a cell lies in the seam band, as limits on unrounded distances.
// SPDX-License-Identifier: MIT
#pragma once

namespace velmorankite {

// How far the outer side of a bend reaches, in blend widths, beyond the line of the segment that
// begins there.
inline constexpr float bend_overlap = 0.1F;

// Distances are rounded to single precision and then tested. Rounding keeps their order, so each
// test passes from some double on, and that double can be tested against before any rounding.
struct band_limits {
  double blend_width;  // map units
  double reach;        // half width of the band, map units
  float limit;         // the same in blend widths
  // Map units: the smallest distance across a segment, above 0 towards the outer side of its bend,
  // that comes out above -bend_overlap.
  double least_outward;
};

// Of a blend width above 0 and a half width, both in map units.
[[nodiscard]] band_limits limits_of(float blend_width, float reach);

// The smallest distance along a segment that rounds to 0 or above: half of the smallest float.
inline constexpr double least_along = -0x1p-150;
// The largest distance along a segment that rounds to `length`, a float, or below.
[[nodiscard]] double last_along(double length);

}  // namespace velmorankite
