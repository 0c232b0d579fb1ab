// SPDX-License-Identifier: MIT
#include "utilities/tension_spline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "utilities/hyperbolic_terms.h"
#include "utilities/interval_search.h"

namespace velmorankite {
namespace {

// From this length on, scaled by the tension, a growing exponential drowns a falling one and 1 to
// the last bit, and the limits of the terms are taken. Overflow begins at 709.
constexpr double stiff_from = 300.0;

// A scaled tension that is larger makes no difference, and its square is still a number.
constexpr double stiffest = 1.0E100;

bool is_stiff(double scaled_length) noexcept {
  return std::fabs(scaled_length) > stiff_from;
}

// What an interval adds to the diagonal and beside it.
struct interval_terms {
  double g, s;
};

interval_terms TCUBTERMS(double sigma, double d) noexcept {
  if (sigma == 0.0) {
    return {d / 3.0, d / 6.0};
  }
  const double x = sigma * d;
  if (is_stiff(x)) {
    return {(1.0 - 1.0 / x) / sigma, 1.0 / (sigma * x)};
  }
  const hyperbolic_terms terms = TCUBHYP(x, wanted_s_and_c);
  const double scale = sigma * x * (1.0 + terms.s);
  return {(terms.c - terms.s) / scale, terms.s / scale};
}

// Weights of three nodes in the slope at the first of them. d1 and d2 are the distances of the
// second and the third; both are below 0 at the far end of a table.
struct end_weights {
  double c1, c2, c3;
};

end_weights TCUBEND(double d1, double d2, double sigma, std::size_t count) noexcept {
  if (count == 2 || is_stiff(sigma * d2)) {
    return {-1.0 / d1, 1.0 / d1, 0.0};
  }
  if (sigma == 0.0) {
    return {-(d1 + d2) / (d1 * d2), d2 / (d1 * (d2 - d1)), -d1 / (d2 * (d2 - d1))};
  }
  const double cosh_1 = TCUBHYP(sigma * d1, wanted_c).c;
  const double cosh_2 = TCUBHYP(sigma * d2, wanted_c).c;
  const double p = sigma * (d1 + d2) / 2.0;
  const double q = sigma * (d2 - d1) / 2.0;
  const double sinh_product =
      p * q * (1.0 + TCUBHYP(p, wanted_s).s) * (1.0 + TCUBHYP(q, wanted_s).s);
  const double scale = (d2 - d1) * cosh_1 - 2.0 * d1 * sinh_product;
  return {2.0 * sinh_product / scale, -cosh_2 / scale, cosh_1 / scale};
}

// The slope at an end node from it and its two neighbours inwards; false if they are not in order.
//   d1, d2  distances of the neighbours, with the sign of the way inwards.
bool slope_at_end(double d1, double d2, double sigma, std::span<const tension_node> nodes,
                  bool at_last, double& slope) noexcept {
  if (!(std::fabs(d1) > 0.0) || !(std::fabs(d2) > std::fabs(d1))) {
    return false;
  }
  const auto value = [&](std::size_t k) { return nodes[at_last ? nodes.size() - 1 - k : k].value; };
  const end_weights weights = TCUBEND(d1, d2, sigma, nodes.size());
  slope = weights.c1 * value(0) + weights.c2 * value(1);
  if (nodes.size() > 2) {
    slope += weights.c3 * value(2);
  }
  return true;
}

// Eliminates and solves the tridiagonal system for the coefficients; false where x does not ascend.
bool solve(std::span<const double> x, std::span<tension_node> nodes, double first_slope,
           double last_slope, double sigma) noexcept {
  const std::size_t n = x.size();
  double slope = first_slope;  // of the interval ahead; the given one at the first node
  interval_terms ahead{0.0, 0.0};
  double carried_work = 0.0;
  double carried = 0.0;
  for (std::size_t i = 0; i + 1 < n; ++i) {
    const double d = x[i + 1] - x[i];
    if (!(d > 0.0)) {
      return false;
    }
    const double next_slope = (nodes[i + 1].value - nodes[i].value) / d;
    const interval_terms next = TCUBTERMS(sigma, d);
    const double diagonal = ahead.g + next.g - ahead.s * carried_work;
    nodes[i].coefficient = (next_slope - slope - ahead.s * carried) / diagonal;
    nodes[i].work = next.s / diagonal;
    slope = next_slope;
    ahead = next;
    carried = nodes[i].coefficient;
    carried_work = nodes[i].work;
  }
  nodes[n - 1].coefficient =
      (last_slope - slope - ahead.s * carried) / (ahead.g - ahead.s * carried_work);
  for (std::size_t i = n - 1; i-- > 0;) {
    nodes[i].coefficient -= nodes[i].work * nodes[i + 1].coefficient;
  }
  return true;
}

// sinh(sigma a) / sinh(sigma (a + b)) for a and b at or above 0 and a stiff sum of them.
double sinh_ratio(double sigma, double a, double b) noexcept {
  return std::exp(-sigma * b) - std::exp(-sigma * (2.0 * a + b));
}

}  // namespace

Status TCUBSPL(std::span<const double> x, std::span<tension_node> nodes, double first_slope,
               double last_slope, std::int32_t slope_switch, double tension) noexcept {
  const std::size_t n = x.size();
  if (n < 2) {
    return tension_too_few_nodes;
  }
  if (!(x[0] < x[n - 1])) {
    return tension_not_ascending;
  }
  const double sigma =
      std::min(std::fabs(tension) * static_cast<double>(n - 1) / (x[n - 1] - x[0]), stiffest);
  if (slope_switch >= first_slope_computed) {
    const double d1 = x[1] - x[0];
    const double d2 = n == 2 ? 2.0 * d1 : x[2] - x[0];
    if (!slope_at_end(d1, d2, sigma, nodes, false, first_slope)) {
      return tension_not_ascending;
    }
  }
  if (slope_switch == last_slope_computed || slope_switch == slopes_computed) {
    const double d1 = -(x[n - 1] - x[n - 2]);
    const double d2 = n == 2 ? 2.0 * d1 : -(x[n - 1] - x[n - 3]);
    if (!slope_at_end(d1, d2, sigma, nodes, true, last_slope)) {
      return tension_not_ascending;
    }
  }
  if (!solve(x, nodes, first_slope, last_slope, sigma)) {
    return tension_not_ascending;
  }
  nodes[0].work = sigma;
  return success;
}

double TCUBVAL(std::span<const double> x, std::span<const tension_node> nodes, double t,
               std::int32_t& position) noexcept {
  if (x.size() < 2) {
    return 0.0;
  }
  const auto i = static_cast<std::size_t>(INTERV(x.first(x.size() - 1), t, position).left) - 1;
  const tension_node& left = nodes[i];
  const tension_node& right = nodes[i + 1];
  const double sigma = nodes[0].work;
  const double d1 = t - x[i];
  const double d2 = x[i + 1] - t;
  const double d = x[i + 1] - x[i];
  const double line = (right.value * d1 + left.value * d2) / d;
  if (sigma == 0.0) {
    return line -
           d1 * d2 * (right.coefficient * (d1 + d) + left.coefficient * (d2 + d)) / (6.0 * d);
  }
  const bool inside = d1 >= 0.0 && d2 >= 0.0;
  if (inside && is_stiff(sigma * d)) {
    return line + (right.coefficient * (sinh_ratio(sigma, d1, d2) - d1 / d) +
                   left.coefficient * (sinh_ratio(sigma, d2, d1) - d2 / d)) /
                      (sigma * sigma);
  }
  const double s = TCUBHYP(sigma * d, wanted_s).s;
  const double s1 = TCUBHYP(sigma * d1, wanted_s).s;
  const double s2 = TCUBHYP(sigma * d2, wanted_s).s;
  const double value =
      line + (right.coefficient * d1 * (s1 - s) + left.coefficient * d2 * (s2 - s)) /
                 (sigma * d * sigma * (1.0 + s));
  // Beyond the table the exponentials may be too large for a number: the polygon goes on there.
  return inside || std::isfinite(value) ? value : line;
}

}  // namespace velmorankite
