// SPDX-License-Identifier: MIT
#include "grid/value_transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

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
    for (const auto& [mode, given] : {std::pair(2, z), std::pair(3, z), std::pair(3, -z)}) {
      float value = given;
      GRDZTRANS(mode, value, 0);
      GRDZTRANS(mode, value, -3);
      EXPECT_NEAR(value, given, z * 1.0e-5F);
    }
  }
  EXPECT_EQ(restore_value(2, transform_value(2, -5.0F)), std::exp(-18.0F));
  EXPECT_EQ(restore_value(1, 3.0F), 3.0F);
  // Cells without data pass both ways unchanged.
  for (const auto& [mode, direction] : {std::pair(2, -1), {2, 1}, {3, -1}, {3, 1}}) {
    for (const float z : {dummy, valid_threshold, std::nanf("")}) {
      float value = z;
      GRDZTRANS(mode, value, direction);
      EXPECT_TRUE(value == z || (std::isnan(z) && std::isnan(value)));
    }
  }
}

}  // namespace
}  // namespace velmorankite
