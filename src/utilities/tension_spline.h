// A spline under tension: from the cubic one to the polygon through a table of values.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

#include "grid/status.h"

namespace velmorankite {

// A node of a spline under tension. Three doubles, as callers of the C interface hold them.
struct tension_node {
  double value = 0.0;
  double coefficient = 0.0;  // out of TCUBSPL
  double work = 0.0;         // out of TCUBSPL; in the first node the scaled tension
};
static_assert(sizeof(tension_node) == 3 * sizeof(double));

// Which slopes at the ends of the table are computed from the outer three nodes and not given.
inline constexpr std::int32_t slopes_given = 0;
inline constexpr std::int32_t last_slope_computed = 1;
inline constexpr std::int32_t first_slope_computed = 2;
inline constexpr std::int32_t slopes_computed = 3;

// What comes of a fit. These numbers are above 0, as a caller of the C interface takes them.
inline constexpr Status tension_too_few_nodes{1};
inline constexpr Status tension_not_ascending{2};

// Fits a spline under tension.
//   x             the abscissae, strictly ascending.
//   nodes         as many; in: `value`; out: the rest.
//   first_slope   slope at the first node and, last_slope, at the last, where they are given.
//   slope_switch  0 to 3, as above. Any other number takes given slopes, but a first one above 3.
//   tension       0 is the cubic spline; about 50 is nearly the polygon; the sign does not count.
// The lengths that matter are the tension times a mean interval. Where their exponentials would
// no longer be numbers, their limits are taken: with ever more tension the spline goes over into
// the polygon.
// Status: success, tension_too_few_nodes (below 2), tension_not_ascending.
// After A. K. Cline, Scalar- and planar-valued curve fitting using splines under tension (1974).
Status TCUBSPL(std::span<const double> x, std::span<tension_node> nodes, double first_slope,
               double last_slope, std::int32_t slope_switch, double tension) noexcept;

// The spline's value at t; beyond the table the outer intervals go on, on their polygon where
// the exponentials are no longer numbers. 0 with fewer than 2 nodes.
//   position  as INTERV takes it.
double TCUBVAL(std::span<const double> x, std::span<const tension_node> nodes, double t,
               std::int32_t& position) noexcept;

}  // namespace velmorankite
