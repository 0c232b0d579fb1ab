// The cubic spline through a table of values, its integral and its first moments.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

namespace velmorankite {

// A node of a cubic spline: with h the distance from it, the spline up to the next node is
// value + h (first + h (second + h third / 3) / 2). Four doubles, as callers of the C interface
// hold them. The second and third of the last node are what CUBSPL worked in.
struct cubic_node {
  double value = 0.0;
  double first = 0.0;   // derivatives; ahead of CUBSPL, at either end, the boundary value
  double second = 0.0;  //
  double third = 0.0;   //
};
static_assert(sizeof(cubic_node) == 4 * sizeof(double));

// What is asked of a spline at an end. A code below 0 means what 0 means, one above 2 what 2 means.
inline constexpr std::int32_t boundary_not_a_knot = 0;  // the outer two intervals are one cubic
inline constexpr std::int32_t boundary_slope = 1;       // `first` of the end node is the slope
inline constexpr std::int32_t boundary_curvature = 2;   // `first` is the second derivative

// Fits a cubic spline with two continuous derivatives through all nodes.
//   tau         the abscissae, strictly ascending: it is not tested.
//   nodes       as many; in: `value`, and `first` of an end whose code wants it; out: all else.
//   begin_code  what is asked at the first node, end_code at the last.
// Two nodes without a condition give a line, three the parabola; fewer than 2 are left alone.
// After C. de Boor, A Practical Guide to Splines (1978), CUBSPL.
void CUBSPL(std::span<const double> tau, std::span<cubic_node> nodes, std::int32_t begin_code,
            std::int32_t end_code) noexcept;

// The spline's value at x; beyond the table the value at its end. 0 without a node.
//   position  as INTERV takes it.
double CUBVAL(std::span<const double> tau, std::span<const cubic_node> nodes, double x,
              std::int32_t& position) noexcept;

// The integral of the spline from a to b, a <= b; beyond the table the outer cubics go on. Where
// b falls in an interval before that of a, the intervals between them are not counted.
double CUBINT(std::span<const double> tau, std::span<const cubic_node> nodes, double a, double b,
              std::int32_t& position) noexcept;

// The same of t times the spline, t being measured from the left node of each interval anew.
double CUBINT2(std::span<const double> tau, std::span<const cubic_node> nodes, double a, double b,
               std::int32_t& position) noexcept;

}  // namespace velmorankite
