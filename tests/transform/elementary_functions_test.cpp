// SPDX-License-Identifier: MIT
#include "transform/elementary_functions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmorankite {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(ElementaryFunctions, exponential_is_that_of_the_library_to_the_last_bits) {
  for (double x = -700.0; x < 709.5; x += 0.0137) {
    ASSERT_NEAR(exponential(x) / std::exp(x), 1.0, 1.0E-15) << x;
  }
  EXPECT_EQ(exponential(0.0), 1.0);
  EXPECT_EQ(exponential(-0.0), 1.0);
}

TEST(ElementaryFunctions, exponential_ends_in_zero_and_infinity) {
  const double smallest = std::numeric_limits<double>::denorm_min();
  for (double x = -745.0; x < -708.0; x += 0.25) {  // fewer and fewer bits
    ASSERT_NEAR(exponential(x), std::exp(x), 1.0E-15 * std::exp(x) + smallest) << x;
  }
  for (const double x : {746.0, 799.0, 801.0, 1.0E6, 1.0E300, infinity}) {
    EXPECT_EQ(exponential(x), infinity) << x;
    EXPECT_EQ(exponential(-x), 0.0) << x;
  }
  EXPECT_TRUE(std::isnan(exponential(std::nan(""))));
}

TEST(ElementaryFunctions, logarithm_and_power_hold_over_all_magnitudes) {
  for (double x = 1.0E-300; x < 1.0E300; x *= 1.37) {
    ASSERT_NEAR(logarithm(x), std::log(x), 1.0E-15 * std::max(1.0, std::abs(std::log(x)))) << x;
  }
  for (double x = 0.6; x < 1.7; x += 0.00013) {
    ASSERT_NEAR(logarithm(x), std::log(x), 4.0E-16 * std::abs(std::log(x)) + 3.0E-16) << x;
  }
  EXPECT_EQ(logarithm(1.0), 0.0);
  for (const double y : {-3.0, -0.5, 0.0, 0.25, 1.5, 7.0}) {
    for (double x = 1.0E-7; x < 1.0E4; x *= 1.093) {
      ASSERT_NEAR(power(x, y) / std::pow(x, y), 1.0, 1.0E-13) << x << " to the " << y;
    }
  }
}

TEST(ElementaryFunctions, sine_counts_half_turns) {
  for (double t = -8.0; t < 8.0; t += 0.00317) {
    ASSERT_NEAR(sine_of_half_turns(t), std::sin(M_PI * t), 5.0E-15) << t;
  }
  for (const double whole : {-3.0, 0.0, 2.0, 1.0E9, 1.0E15}) {
    EXPECT_EQ(sine_of_half_turns(whole), 0.0) << whole;
  }
  // Where the argument of the library's sine has lost its fraction.
  EXPECT_NEAR(sine_of_half_turns(1.0E9 + 0.25), std::sqrt(0.5), 1.0E-15);
  EXPECT_NEAR(sine_of_half_turns(1.0E9 + 1.5), -1.0, 1.0E-15);
  EXPECT_NEAR(sine_of_half_turns(1.0E-9) / (M_PI * 1.0E-9), 1.0, 1.0E-15);
}

TEST(ElementaryFunctions, angle_runs_from_the_x_axis_to_the_y_axis) {
  for (double angle = 0.0; angle <= M_PI / 2.0; angle += 0.00037) {
    const double x = 3.0E-5 * std::cos(angle);
    const double y = 3.0E-5 * std::sin(angle);
    ASSERT_NEAR(angle_of(x, y), std::atan2(y, x), 4.0E-16) << angle;
  }
  EXPECT_EQ(angle_of(2.0, 0.0), 0.0);
  EXPECT_EQ(angle_of(0.0, 2.0), M_PI / 2.0);
  EXPECT_EQ(angle_of(2.0, 2.0), M_PI / 4.0);
}

}  // namespace
}  // namespace velmorankite
