// SPDX-License-Identifier: MIT
#include "condition/plane_fit.h"

#include <algorithm>
#include <cmath>

namespace velmorankite {
namespace {

constexpr double smallest_determinant = static_cast<double>(1.0E-6F);
// Of its largest product. Samples on one line leave in it what rounding left of the sums, which
// grows with the units of x and y and passes any limit that does not.
constexpr double smallest_share = 1.0E-11;

}  // namespace

plane solve_plane(const plane_sums& s, float mean_without_samples) noexcept {
  // Cofactors of the symmetric matrix (n, x, y; x, xx, xy; y, xy, yy).
  const double c11 = s.xx * s.yy - s.xy * s.xy;
  const double c12 = s.xy * s.y - s.x * s.yy;
  const double c13 = s.x * s.xy - s.xx * s.y;
  const double c22 = s.n * s.yy - s.y * s.y;
  const double c23 = s.x * s.y - s.n * s.xy;
  const double c33 = s.n * s.xx - s.x * s.x;
  const double determinant = s.n * c11 + s.x * c12 + s.y * c13;
  const double smallest = std::max(smallest_determinant, smallest_share * s.n * s.xx * s.yy);
  if (std::abs(determinant) > smallest) {
    return {static_cast<float>((c11 * s.z + c12 * s.xz + c13 * s.yz) / determinant),
            static_cast<float>((c12 * s.z + c22 * s.xz + c23 * s.yz) / determinant),
            static_cast<float>((c13 * s.z + c23 * s.xz + c33 * s.yz) / determinant)};
  }
  return {s.n > 0.0 ? static_cast<float>(s.z / s.n) : mean_without_samples, 0.0F, 0.0F};
}

}  // namespace velmorankite
