// SPDX-License-Identifier: MIT
#include "grid/value_transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "grid/dummy.h"

namespace velmorankite {
namespace {

TEST(ValueTransform, each_branch_begins_where_its_formula_does) {
  const float above_1 = std::nextafter(1.0F, 2.0F);
  struct example {
    std::int32_t mode;
    float z;
    float t;
  };
  const example examples[] = {
      {2, 1.0F, 0.0F},        {2, 2.0F, 0.69314718F},
      {2, 0.0F, -18.0F},      {2, -5.0F, -18.0F},
      {3, 2.0F, 1.69314718F}, {3, -2.0F, -1.69314718F},
      {3, 1.0F, 1.0F},        {3, -1.0F, -1.0F},
      {3, 0.25F, 0.25F},      {3, above_1, 1.0F + std::log(above_1)},
      {0, -5.0F, -5.0F},      {1, -5.0F, -5.0F},
      {4, -5.0F, -5.0F},
  };
  for (const example& e : examples) {
    EXPECT_FLOAT_EQ(transform_value(e.mode, e.z), e.t) << "mode " << e.mode << " of " << e.z;
  }
}

TEST(ValueTransform, restoring_gives_back_what_was_transformed) {
  for (const float z : {1.0e-6F, 0.5F, 1.0F, 1.5F, 250.0F, 1.0e8F}) {
    const float tolerance = z * 1.0e-5F;
    EXPECT_NEAR(restore_value(2, transform_value(2, z)), z, tolerance);
    EXPECT_NEAR(restore_value(3, transform_value(3, z)), z, tolerance);
    EXPECT_NEAR(restore_value(3, transform_value(3, -z)), -z, tolerance);
  }
  EXPECT_EQ(restore_value(2, transform_value(2, -5.0F)), std::exp(-18.0F));
  EXPECT_EQ(restore_value(1, 3.0F), 3.0F);
}

TEST(ValueTransform, cells_without_data_pass_both_ways_unchanged) {
  for (const std::int32_t mode : {1, 2, 3}) {
    for (const std::int32_t direction : {-1, 0, 1}) {
      for (const float z : {dummy, valid_threshold, -std::numeric_limits<float>::infinity()}) {
        float value = z;
        GRDZTRANS(mode, value, direction);
        EXPECT_EQ(value, z);
      }
      float nan = std::numeric_limits<float>::quiet_NaN();
      GRDZTRANS(mode, nan, direction);
      EXPECT_TRUE(std::isnan(nan));
    }
  }
}

TEST(ValueTransform, the_sign_of_the_direction_tells_the_way) {
  float value = 10.0F;
  GRDZTRANS(2, value, 0);
  EXPECT_EQ(value, std::log(10.0F));
  GRDZTRANS(2, value, -3);
  EXPECT_NEAR(value, 10.0F, 1.0e-5F);
}

}  // namespace
}  // namespace velmorankite
