// The bicubic of four rows of cells, along X and then along Y, at one point or at many.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmorankite {

// What the cells at -1, 0, 1 and 2 weigh at t.
template <typename Real>
struct four_weights {
  Real before, base, next, last;
};

template <typename Real>
[[nodiscard]] constexpr four_weights<Real> catmull_rom(Real t) noexcept {
  constexpr Real half = Real{0.5};
  constexpr Real three_halves = Real{1.5};
  constexpr Real five_halves = Real{2.5};
  return {((1 - half * t) * t - half) * t, (three_halves * t - five_halves) * t * t + 1,
          ((2 - three_halves * t) * t + half) * t, (half * t - half) * t * t};
}

template <typename Real>
[[nodiscard]] constexpr Real weighted(const four_weights<Real>& w, Real p, Real q, Real r,
                                      Real s) noexcept {
  return w.before * p + w.base * q + w.next * r + w.last * s;
}

// Whether a point lies practically on its base cell.
template <typename Real>
[[nodiscard]] constexpr bool is_on_base_cell(Real u, Real v) noexcept {
  return std::fabs(u) + std::fabs(v) < static_cast<Real>(0.001F);
}

// Four rows of cells, the lowest first, from the column before the base cell on.
using bicubic_rows = std::array<const float*, 4>;

// The bicubics of points whose base cells follow each other along a row, that of the first being
// the rows' second cell.
//   u, v   offsets from the base cells, in cells.
//   whole  out: 0 where the value does not stand: a point on its base cell, one of the sixteen
//          without data, or a value that is no number.
template <typename Real>
void bicubic_run(const bicubic_rows& rows, const double* u, const double* v, std::size_t count,
                 float* values, std::int32_t* whole);

}  // namespace velmorankite
