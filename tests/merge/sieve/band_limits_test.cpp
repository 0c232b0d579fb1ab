// SPDX-License-Identifier: MIT
#include "merge/sieve/band_limits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmorankite {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(BandLimits, along_a_segment_are_where_the_rounded_distance_passes_its_ends) {
  EXPECT_TRUE(static_cast<float>(least_along) >= 0.0F);
  EXPECT_FALSE(static_cast<float>(std::nextafter(least_along, -1.0)) >= 0.0F);
  // Floats with an even and an odd last bit, either side of a power of 2, and the smallest.
  for (const float length : {1.0F, std::nextafter(1.0F, 2.0F), std::nextafter(1.0F, 0.0F), 0.1F,
                             12345.678F, 3e38F, std::numeric_limits<float>::denorm_min()}) {
    const double last = last_along(static_cast<double>(length));
    EXPECT_EQ(static_cast<float>(last), length);
    EXPECT_GT(static_cast<float>(std::nextafter(last, infinity)), length);
  }
}

TEST(BandLimits, of_a_fan_are_where_the_rounded_distance_passes_the_overlap) {
  for (const float blend : {1.0F, 3.0F, 0.7F, 1234.5F, 1e-30F, 1e30F, std::nextafter(4.0F, 5.0F)}) {
    const auto passes = [&](double d) {
      return static_cast<float>(d / static_cast<double>(blend)) > -bend_overlap;
    };
    const band_limits band = limits_of(blend, 2.0F * blend);
    EXPECT_EQ(band.limit, 2.0F);
    EXPECT_TRUE(passes(band.least_outward)) << blend;
    EXPECT_FALSE(passes(std::nextafter(band.least_outward, -infinity))) << blend;
  }
}

}  // namespace
}  // namespace velmorankite
