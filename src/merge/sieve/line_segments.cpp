// SPDX-License-Identifier: MIT
#include "merge/sieve/line_segments.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "platform/number_text.h"

namespace velmorankite {
namespace {

using platform::shortest;

constexpr double least_steps = 4.0;
constexpr double most_steps = 2147483000.0;  // a 32-bit count, with room for the spare samples

// The bend from the direction of the segment before a vertex to the segment behind it.
bend turn(const line_segment& before, double dx, double dy) {
  const auto cross = static_cast<float>(dy * before.ux - dx * before.uy);
  return cross >= 0.0F ? bend::left : bend::right;
}

}  // namespace

bool close_line(stitch_line& line, double distance) {
  const double dx = line.x.back() - line.x.front();
  const double dy = line.y.back() - line.y.front();
  if (!(std::sqrt(dx * dx + dy * dy) < distance)) {
    return false;
  }
  line.x.push_back(line.x[1]);
  line.y.push_back(line.y[1]);
  return true;
}

Outcome measure_segments(const stitch_line& line, double step, std::vector<line_segment>& segments,
                         std::int32_t& step_count) {
  constexpr auto longest = static_cast<double>(std::numeric_limits<float>::max());
  const std::size_t count = line.x.size() - 1;
  segments.clear();
  segments.reserve(count);
  float total = 0.0F;
  for (std::size_t k = 0; k < count; ++k) {
    const double dx = line.x[k + 1] - line.x[k];
    const double dy = line.y[k + 1] - line.y[k];
    const double exact_length = std::sqrt(dx * dx + dy * dy);
    if (!(exact_length + static_cast<double>(total) < longest)) {
      return impossible("the stitch line is longer than single precision can hold (" +
                        shortest(longest) + ")");
    }
    const auto length = static_cast<double>(static_cast<float>(exact_length));
    const bend at_start = k == 0 ? bend::none : turn(segments.back(), dx, dy);
    segments.push_back({line.x[k], line.y[k], dx / length, dy / length, length, at_start});
    total += static_cast<float>(length);
  }
  const double steps = static_cast<double>(total) / step + 1.0;
  if (steps < least_steps) {
    return impossible("the stitch line is " + shortest(total) +
                      " long, at least three X cell sizes (" +
                      shortest((least_steps - 1.0) * step) + ") are needed");
  }
  if (!(steps < most_steps)) {
    return impossible("the stitch line is " + shortest(total) +
                      " long, which is more X cell sizes of " + shortest(step) +
                      " than can be sampled");
  }
  step_count = static_cast<std::int32_t>(steps);
  return {};
}

}  // namespace velmorankite
