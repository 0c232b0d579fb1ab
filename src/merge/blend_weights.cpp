// SPDX-License-Identifier: MIT
#include "merge/blend_weights.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "grid/dummy.h"

namespace velmorankite {
namespace {

// A bend reaches this far, in blend widths, beyond the line of the segment behind it.
constexpr float bend_overlap = 0.1F;

struct band_shape {
  double blend_width;
  float reach;  // half width of the band, blend widths
};

// The signed distance of a cell after one more segment: below 0 on the left of the line. (px, py)
// leads from the first vertex of the segment to the cell. The dummy is further off than any cell
// of the band, so that a cell without a distance needs no test of its own.
float nearer(float v, double px, double py, const line_segment& s, const band_shape& band) {
  const auto t = static_cast<float>(s.ux * px + s.uy * py);
  const auto d = static_cast<float>((px * s.uy - s.ux * py) / band.blend_width);
  if (std::fabs(d) <= band.reach && t >= 0.0F && static_cast<double>(t) <= s.length &&
      std::fabs(d) < std::fabs(v)) {
    v = d;
  }
  if (s.at_start == bend::none) {
    return v;
  }
  const auto e = static_cast<float>(std::sqrt(px * px + py * py) / band.blend_width);
  if (e <= band.reach && e < std::fabs(v)) {
    if (s.at_start == bend::right && d < bend_overlap) {
      v = -e;
    } else if (s.at_start == bend::left && d > -bend_overlap) {
      v = e;
    }
  }
  return v;
}

// The share of grid 1 rises from 0, one blend width left of the line, to 1 on it, level at both
// ends.
float weight_of(float v) {
  if (v == dummy) {
    return dummy;
  }
  if (v > 0.0F) {
    return weight_grid_1;
  }
  if (v < -1.0F) {
    return weight_grid_2;
  }
  const float u = (v + 1.0F) * (v + 1.0F);
  return u * (2.0F - u);
}

}  // namespace

void fill_blend_weights(std::span<const line_segment> segments, const Lattice& window,
                        float blend_width, float reach, std::span<float> weights) {
  const band_shape band{static_cast<double>(blend_width), reach / blend_width};
  std::size_t cell = 0;
  for (std::int32_t row = 1; row <= window.y_count; ++row) {
    for (std::int32_t column = 1; column <= window.x_count; ++column) {
      float v = dummy;
      for (const line_segment& s : segments) {
        v = nearer(v, window.x(column) - s.x, window.y(row) - s.y, s, band);
      }
      weights[cell++] = weight_of(v);
    }
  }
}

}  // namespace velmorankite
