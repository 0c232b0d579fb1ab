// Hyperbolic functions less the first terms of their series, without the cancellation near 0.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace velmorankite {

// What TCUBHYP is asked for; those that were not asked for are 0.
struct hyperbolic_terms {
  double s = 0.0;  // sinh(x) / x - 1
  double c = 0.0;  // cosh(x) - 1
  double m = 0.0;  // (cosh(x) - 1 - x^2 / 2) / x^2
};

// The terms at x. `wanted` below 0: s; 0: s and c; 1: c; 3: s and m; any other: m. They overflow
// where exp(|x|) does. The rational forms near 0 are those of A. K. Cline's splines under tension
// (1974).
hyperbolic_terms TCUBHYP(double x, std::int32_t wanted) noexcept;

inline constexpr std::int32_t wanted_s = -1;
inline constexpr std::int32_t wanted_s_and_c = 0;
inline constexpr std::int32_t wanted_c = 1;

}  // namespace velmorankite
