// SPDX-License-Identifier: MIT
#include "utilities/cubic_spline.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmorankite {
namespace {

struct polynomial {
  double a, b, c, d;  // of 1, x, x^2, x^3

  [[nodiscard]] double at(double x) const { return a + x * (b + x * (c + x * d)); }
  [[nodiscard]] double slope(double x) const { return b + x * (2.0 * c + 3.0 * x * d); }
  [[nodiscard]] double curvature(double x) const { return 2.0 * c + 6.0 * x * d; }
  [[nodiscard]] double integral(double x) const {
    return x * (a + x * (b / 2.0 + x * (c / 3.0 + x * d / 4.0)));
  }
};

const std::vector<double> tau = {-1.0, 0.5, 1.0, 3.0, 7.0};

// The spline through the first `count` nodes, its end conditions those of the polynomial.
std::vector<cubic_node> fit(const polynomial& f, std::size_t count, int begin_code, int end_code) {
  std::vector<cubic_node> nodes(count);
  for (std::size_t i = 0; i < count; ++i) {
    nodes[i].value = f.at(tau[i]);
  }
  const auto condition = [&](double x, int code) {
    return code == 1 ? f.slope(x) : code >= 2 ? f.curvature(x) : 1.0E10;
  };
  nodes.front().first = condition(tau[0], begin_code);
  nodes.back().first = condition(tau[count - 1], end_code);
  CUBSPL(std::span(tau).first(count), nodes, begin_code, end_code);
  return nodes;
}

// A polynomial that the conditions leave no choice but.
polynomial reproduced(std::size_t count, int begin_code, int end_code) {
  const std::size_t conditions = count + (begin_code > 0 ? 1 : 0) + (end_code > 0 ? 1 : 0);
  return {2.0, -1.0, conditions > 2 ? 0.5 : 0.0, conditions > 3 ? 0.25 : 0.0};
}

TEST(CubicSpline, a_cubic_is_met_whatever_is_asked_at_the_ends) {
  for (std::size_t count = 2; count <= tau.size(); ++count) {
    for (const int begin_code : {-1, 0, 1, 2, 3}) {
      for (const int end_code : {-1, 0, 1, 2, 3}) {
        if (count == 2 && begin_code + end_code >= 4) {
          continue;  // two curvatures leave a choice of values only, and these are given
        }
        const polynomial f = reproduced(count, begin_code, end_code);
        const std::vector<cubic_node> nodes = fit(f, count, begin_code, end_code);
        const auto table = std::span(tau).first(count);
        const double last = table.back();
        std::int32_t position = 1;
        for (const double x : {-0.9, 0.5, 0.4, 0.9 * last, last}) {
          if (x <= last) {
            EXPECT_NEAR(CUBVAL(table, nodes, x, position), f.at(x), 1.0E-12)
                << count << begin_code << end_code << " at " << x;
          }
        }
        EXPECT_NEAR(nodes.front().first, f.slope(tau[0]), 1.0E-11);
        EXPECT_NEAR(nodes.back().first, f.slope(last), 1.0E-11);
        EXPECT_NEAR(nodes[count - 2].second, f.curvature(table[count - 2]), 1.0E-11);
        EXPECT_NEAR(nodes[count - 2].third, 6.0 * f.d, 1.0E-11);
        EXPECT_NEAR(CUBINT(table, nodes, -2.0, last + 1.0, position),
                    f.integral(last + 1.0) - f.integral(-2.0), 1.0E-10);
      }
    }
  }
}

TEST(CubicSpline, the_integral_within_an_interval_and_the_moments_of_each_are_exact) {
  const polynomial f{1.0, 2.0, -3.0, 0.5};
  const std::vector<cubic_node> nodes = fit(f, tau.size(), 0, 0);
  std::int32_t position = 4;
  EXPECT_EQ(CUBINT(tau, nodes, 2.0, 2.0, position), 0.0);
  EXPECT_NEAR(CUBINT(tau, nodes, 1.25, 2.5, position), f.integral(2.5) - f.integral(1.25), 1.0E-13);
  // x f(x) from a to b less the left node times the integral there.
  const polynomial times_x{0.0, f.a, f.b, f.c};
  const auto moment = [&](double node, double a, double b) {
    const double fifth = f.d / 5.0 * (b * b * b * b * b - a * a * a * a * a);
    return times_x.integral(b) - times_x.integral(a) + fifth -
           node * (f.integral(b) - f.integral(a));
  };
  EXPECT_NEAR(CUBINT2(tau, nodes, 1.25, 5.0, position),
              moment(1.0, 1.25, 3.0) + moment(3.0, 3.0, 5.0), 1.0E-11);
}

TEST(CubicSpline, beyond_the_table_its_ends_go_on_and_a_single_node_is_left_alone) {
  const std::vector<cubic_node> nodes = fit({0.3, 0.1, 0.7, 0.9}, tau.size(), 0, 0);
  std::int32_t position = 3;
  EXPECT_EQ(CUBVAL(tau, nodes, -9.0, position), nodes.front().value);
  EXPECT_EQ(CUBVAL(tau, nodes, 7.0, position), nodes.back().value);
  EXPECT_EQ(CUBVAL(tau, nodes, 9.0, position), nodes.back().value);
  std::vector<cubic_node> one = {{5.0, 6.0, 7.0, 8.0}};
  CUBSPL(std::span(tau).first(1), one, 0, 0);
  EXPECT_EQ(one[0].first, 6.0);
  EXPECT_EQ(CUBVAL(std::span(tau).first(1), one, 0.0, position), 5.0);
}

}  // namespace
}  // namespace velmorankite
