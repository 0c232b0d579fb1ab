// SPDX-License-Identifier: MIT
#include "utilities/cubic_spline.h"

#include <cstddef>

#include "utilities/interval_search.h"

namespace velmorankite {
namespace {

// The system for the slopes has, in the row of node i, its right side in `first`, its diagonal in
// `third` once it is eliminated, and until then the width and the slope of the interval ahead of
// the node in `second` and `third`. The first row has its upper element in `second`.

void set_first_row(std::span<cubic_node> c, std::int32_t code) noexcept {
  cubic_node& row = c[0];
  const cubic_node& next = c[1];
  if (code == boundary_slope) {
    row.third = 1.0;
    row.second = 0.0;
  } else if (code >= boundary_curvature) {
    row.third = 2.0;
    row.second = 1.0;
    row.first = 3.0 * next.third - next.second / 2.0 * row.first;
  } else if (c.size() == 2) {
    row.third = 1.0;
    row.second = 1.0;
    row.first = 2.0 * next.third;
  } else {
    row.third = c[2].second;
    row.second = next.second + c[2].second;
    row.first = ((next.second + 2.0 * row.second) * next.third * c[2].second +
                 next.second * next.second * c[2].third) /
                row.second;
  }
}

void eliminate_forward(std::span<cubic_node> c) noexcept {
  for (std::size_t i = 1; i + 1 < c.size(); ++i) {
    const double g = -c[i + 1].second / c[i - 1].third;
    c[i].first =
        g * c[i - 1].first + 3.0 * (c[i].second * c[i + 1].third + c[i + 1].second * c[i].third);
    c[i].third = g * c[i - 1].second + 2.0 * (c[i].second + c[i + 1].second);
  }
}

// Solves the last row, whose element left of the diagonal is -g times the diagonal ahead of it.
void close(cubic_node& last, const cubic_node& ahead, double g) noexcept {
  last.third = g * ahead.second + last.third;
  last.first = (g * ahead.first + last.first) / last.third;
}

void set_last_row(std::span<cubic_node> c, std::int32_t begin_code, std::int32_t code) noexcept {
  const std::size_t n = c.size();
  cubic_node& last = c[n - 1];
  const cubic_node& ahead = c[n - 2];
  const bool begins_free = begin_code <= boundary_not_a_knot;
  if (code == boundary_slope) {
    return;
  }
  if (code >= boundary_curvature) {
    last.first = 3.0 * last.third + last.second / 2.0 * last.first;
    last.third = 2.0;
    close(last, ahead, -1.0 / ahead.third);
  } else if (n == 2 && begins_free) {
    last.first = last.third;
  } else if (n == 2 || (n == 3 && begins_free)) {
    last.first = 2.0 * last.third;
    last.third = 1.0;
    close(last, ahead, -1.0 / ahead.third);
  } else {
    const double a = last.second;
    const double b = ahead.second;
    const double s = a + b;
    last.first =
        ((ahead.value - c[n - 3].value) * (a * a) / b + last.third * b * (a + 2.0 * s)) / s;
    const double g = -s / ahead.third;
    last.third = b;
    close(last, ahead, g);
  }
}

void substitute_back(std::span<cubic_node> c) noexcept {
  for (std::size_t i = c.size() - 1; i-- > 0;) {
    c[i].first = (c[i].first - c[i].second * c[i + 1].first) / c[i].third;
  }
}

// The higher derivatives of each interval from the slopes at its ends.
void set_derivatives(std::span<cubic_node> c) noexcept {
  for (std::size_t i = 0; i + 1 < c.size(); ++i) {
    const double d = c[i + 1].second;
    const double m = (c[i + 1].value - c[i].value) / d;
    const double e = c[i].first + c[i + 1].first - 2.0 * m;
    c[i].second = 2.0 * (m - c[i].first - e) / d;
    c[i].third = 6.0 * e / (d * d);
  }
}

// The interval of x, from 0. The outer two go on beyond the table.
std::size_t interval_of(std::span<const double> tau, double x, std::int32_t& position) noexcept {
  return static_cast<std::size_t>(INTERV(tau.first(tau.size() - 1), x, position).left) - 1;
}

double integral_to(const cubic_node& c, double h) noexcept {
  return h * (c.value + h * (c.first + h * (c.second + h * c.third / 4.0) / 3.0) / 2.0);
}

double moment_to(const cubic_node& c, double h) noexcept {
  return h * h * (c.value / 2.0 + h * (c.first / 3.0 + h * (c.second / 8.0 + h * c.third / 30.0)));
}

template <typename FromNode>
double sum_between(std::span<const double> tau, std::span<const cubic_node> nodes, double a,
                   double b, std::int32_t& position, const FromNode& from_node) noexcept {
  if (tau.size() < 2) {
    return 0.0;
  }
  const std::size_t first = interval_of(tau, a, position);
  const std::size_t last = interval_of(tau, b, position);
  double sum = from_node(nodes[last], b - tau[last]) - from_node(nodes[first], a - tau[first]);
  for (std::size_t i = first; i < last; ++i) {
    sum += from_node(nodes[i], tau[i + 1] - tau[i]);
  }
  return sum;
}

}  // namespace

void CUBSPL(std::span<const double> tau, std::span<cubic_node> nodes, std::int32_t begin_code,
            std::int32_t end_code) noexcept {
  if (tau.size() < 2) {
    return;
  }
  for (std::size_t i = 1; i < tau.size(); ++i) {
    nodes[i].second = tau[i] - tau[i - 1];
    nodes[i].third = (nodes[i].value - nodes[i - 1].value) / nodes[i].second;
  }
  set_first_row(nodes, begin_code);
  eliminate_forward(nodes);
  set_last_row(nodes, begin_code, end_code);
  substitute_back(nodes);
  set_derivatives(nodes);
}

double CUBVAL(std::span<const double> tau, std::span<const cubic_node> nodes, double x,
              std::int32_t& position) noexcept {
  if (tau.empty()) {
    return 0.0;
  }
  if (x <= tau.front()) {
    return nodes.front().value;
  }
  if (x >= tau.back()) {
    return nodes.back().value;
  }
  if (tau.size() == 1) {
    return x;  // a NaN
  }
  const std::size_t i = interval_of(tau, x, position);
  const cubic_node& c = nodes[i];
  const double h = x - tau[i];
  return c.value + h * (c.first + h * (c.second + h * c.third / 3.0) / 2.0);
}

double CUBINT(std::span<const double> tau, std::span<const cubic_node> nodes, double a, double b,
              std::int32_t& position) noexcept {
  return sum_between(tau, nodes, a, b, position, integral_to);
}

double CUBINT2(std::span<const double> tau, std::span<const cubic_node> nodes, double a, double b,
               std::int32_t& position) noexcept {
  return sum_between(tau, nodes, a, b, position, moment_to);
}

}  // namespace velmorankite
