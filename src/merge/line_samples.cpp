// SPDX-License-Identifier: MIT
#include "merge/line_samples.h"

#include <cstddef>

#include "platform/number_text.h"

namespace velmorankite {
namespace {

// The rounded lengths may add up to a little more than their rounded sum.
constexpr std::int64_t spare_steps = 32;

// Written so that the point of a segment without a direction, NaN, is never inside.
bool is_inside(const working_window& window, double x, double y) {
  return x >= window.lattice.x_min && x <= window.x_max && y >= window.lattice.y_min &&
         y <= window.y_max;
}

}  // namespace

Outcome sample_line(std::span<const line_segment> segments, std::int32_t step_count,
                    const working_window& window, std::vector<double>& x, std::vector<double>& y) {
  x.clear();
  y.clear();
  const auto keep = [&](double sample_x, double sample_y) {
    if (is_inside(window, sample_x, sample_y)) {
      x.push_back(sample_x);
      y.push_back(sample_y);
    }
  };
  keep(segments[0].x, segments[0].y);
  const double step = window.lattice.x_cell;
  const std::int64_t most_steps = step_count + spare_steps;
  float walked = 0.0F;
  std::size_t k = 0;
  float start = 0.0F;  // where segment k begins and ends along the line
  float end = static_cast<float>(segments[0].length);
  for (std::int64_t i = 0; i < most_steps; ++i) {
    const auto next = static_cast<float>(static_cast<double>(walked) + step);
    if (next == walked) {
      return impossible("the stitch line is too long for its steps: " + platform::shortest(walked) +
                        " along it a step of one X cell size (" + platform::shortest(step) +
                        ") no longer moves in single precision");
    }
    walked = next;
    while (walked > end) {
      if (++k == segments.size()) {
        return {};
      }
      start = end;
      end = start + static_cast<float>(segments[k].length);
    }
    const auto along = static_cast<double>(walked - start);
    const line_segment& on = segments[k];
    keep(on.x + on.ux * along, on.y + on.uy * along);
  }
  return {};
}

}  // namespace velmorankite
