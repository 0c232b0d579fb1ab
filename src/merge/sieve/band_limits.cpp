// SPDX-License-Identifier: MIT
#include "merge/sieve/band_limits.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace velmorankite {

band_limits limits_of(float blend_width, float reach) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const auto blend = static_cast<double>(blend_width);
  const auto passes = [&](double d) { return static_cast<float>(d / blend) > -bend_overlap; };
  // Half way to the next float the rounding turns over; the division may shift that by a few
  // doubles.
  const auto next = static_cast<double>(std::nextafter(bend_overlap, 0.0F));
  double least = -0.5 * (static_cast<double>(bend_overlap) + next) * blend;
  while (!passes(least)) {
    least = std::nextafter(least, infinity);
  }
  while (passes(std::nextafter(least, -infinity))) {
    least = std::nextafter(least, -infinity);
  }
  return {blend, static_cast<double>(reach), reach / blend_width, least};
}

double last_along(double length) {
  // Half way to the next float, where of two floats the even one is taken.
  const auto bits = std::bit_cast<std::uint32_t>(static_cast<float>(length));
  const double halfway = 0.5 * (length + static_cast<double>(std::bit_cast<float>(bits + 1)));
  return bits % 2 == 0 ? halfway : std::nextafter(halfway, 0.0);
}

}  // namespace velmorankite
