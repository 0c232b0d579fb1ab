// SPDX-License-Identifier: MIT
#include "utilities/tension_spline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "utilities/cubic_spline.h"

namespace velmorankite {
namespace {

const std::vector<double> x = {0.0, 1.0, 1.5, 4.0, 5.0};
const std::vector<double> y = {0.0, 2.0, -1.0, 3.0, 3.0};

std::vector<tension_node> nodes_of(const std::vector<double>& values) {
  std::vector<tension_node> nodes(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    nodes[i].value = values[i];
  }
  return nodes;
}

// Every sixteenth from `first` to `last`.
std::vector<double> sixteenths(int first, int last) {
  std::vector<double> places(static_cast<std::size_t>(last - first) * 16 + 1);
  for (std::size_t i = 0; i < places.size(); ++i) {
    places[i] = first + static_cast<double>(i) / 16.0;
  }
  return places;
}

double line_at(double t) {
  std::size_t i = 0;
  while (i + 2 < x.size() && t > x[i + 1]) {
    ++i;
  }
  return y[i] + (y[i + 1] - y[i]) * (t - x[i]) / (x[i + 1] - x[i]);
}

TEST(TensionSpline, without_tension_it_is_the_cubic_spline_with_its_end_slopes) {
  std::vector<tension_node> nodes = nodes_of(y);
  ASSERT_EQ(TCUBSPL(x, nodes, 0.5, -2.0, slopes_given, 0.0), success);
  std::vector<cubic_node> cubic(y.size());
  for (std::size_t i = 0; i < y.size(); ++i) {
    cubic[i].value = y[i];
  }
  cubic.front().first = 0.5;
  cubic.back().first = -2.0;
  CUBSPL(x, cubic, boundary_slope, boundary_slope);
  std::int32_t position = 1;
  std::int32_t cubic_position = 1;
  for (const double t : sixteenths(0, 5)) {
    EXPECT_NEAR(TCUBVAL(x, nodes, t, position), CUBVAL(x, cubic, t, cubic_position), 1.0E-12) << t;
  }
}

// Between nodes the spline solves f'''' = sigma^2 f''; a cosh about an end and a line are such a
// function, whose slope at that end is found from three nodes.
TEST(TensionSpline, what_solves_its_equation_is_met) {
  for (const double tension : {0.0, 0.4, -3.0, 6.0, 40.0}) {
    for (const std::int32_t computed : {slopes_given, last_slope_computed, first_slope_computed}) {
      const double sigma = std::fabs(tension) * 4.0 / 5.0;
      const double centre = computed == last_slope_computed ? 5.0 : 0.0;
      const double scale = std::cosh(5.0 * sigma);
      const auto f = [&](double t) {
        return 1.0 - 2.0 * t + std::cosh(sigma * (t - centre)) / scale;
      };
      const auto slope = [&](double t) {
        return -2.0 + sigma * std::sinh(sigma * (t - centre)) / scale;
      };
      std::vector<double> values(x.size());
      std::ranges::transform(x, values.begin(), f);
      std::vector<tension_node> nodes = nodes_of(values);
      const double first = computed == first_slope_computed ? 1.0E10 : slope(0.0);
      const double last = computed == last_slope_computed ? 1.0E10 : slope(5.0);
      ASSERT_EQ(TCUBSPL(x, nodes, first, last, computed, tension), success);
      std::int32_t position = 1;
      for (const double t : sixteenths(0, 5)) {
        EXPECT_NEAR(TCUBVAL(x, nodes, t, position), f(t), 2.0E-6 * std::max(1.0, std::fabs(f(t))))
            << tension << ' ' << computed << " at " << t;
      }
    }
  }
}

TEST(TensionSpline, ever_more_tension_leads_to_the_polygon) {
  for (const double tension : {100.0, 374.0, 376.0, 900.0, 1.0E6, 1.0E200, HUGE_VAL}) {
    std::vector<tension_node> nodes = nodes_of(y);
    ASSERT_EQ(TCUBSPL(x, nodes, 0.0, 0.0, slopes_computed, tension), success);
    std::int32_t position = 1;
    for (const double t : sixteenths(-3, 8)) {
      if ((t >= 0.0 && t <= 5.0) || tension > 500.0) {
        EXPECT_NEAR(TCUBVAL(x, nodes, t, position), line_at(t), 6.0 / tension + 1.0E-14)
            << tension << " at " << t;
      }
    }
  }
}

TEST(TensionSpline, two_nodes_make_a_line_and_a_table_out_of_order_is_refused) {
  const std::vector<double> two = {1.0, 3.0};
  std::vector<tension_node> nodes = nodes_of({4.0, 8.0});
  std::int32_t position = 1;
  ASSERT_EQ(TCUBSPL(two, nodes, 0.0, 0.0, slopes_computed, 2.0), success);
  EXPECT_NEAR(TCUBVAL(two, nodes, 2.5, position), 7.0, 1.0E-12);
  EXPECT_EQ(TCUBSPL(std::span(two).first(1), nodes, 0.0, 0.0, 0, 2.0), tension_too_few_nodes);
  const std::vector<double> wrong[] = {
      {1.0, 1.0, 2.0}, {1.0, 3.0, 3.0}, {3.0, 2.0, 1.0}, {1.0, 4.0, 3.0}};
  for (const std::vector<double>& abscissae : wrong) {
    for (const std::int32_t computed : {slopes_given, slopes_computed}) {
      std::vector<tension_node> three = nodes_of({1.0, 2.0, 3.0});
      EXPECT_EQ(TCUBSPL(abscissae, three, 0.0, 0.0, computed, 1.0), tension_not_ascending);
    }
  }
}

}  // namespace
}  // namespace velmorankite
