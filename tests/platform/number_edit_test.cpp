// Expected fields are those that a Fortran compiler's run-time library prints.
// SPDX-License-Identifier: MIT
#include "platform/number_edit.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace velmorankite::platform {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(FixedEdit, prints_what_a_fortran_program_prints) {
  struct example {
    double value;
    int width;
    int decimals;
    std::string expected;
  };
  const example examples[] = {
      {123.456, 9, 1, "    123.5"},
      {-9.96, 9, 1, "    -10.0"},
      {99.995, 6, 2, "100.00"},  // the binary value lies above the tie
      {9.95, 4, 1, " 9.9"},      // and here below it
      {0.125, 6, 2, "  0.12"},   // ties go to the even digit
      {0.375, 6, 2, "  0.38"},
      {0.5, 4, 0, "  0."},
      {1.5, 4, 0, "  2."},
      {2.5, 4, 0, "  2."},
      {-0.0, 6, 2, " -0.00"},
      {-0.001, 5, 2, "-0.00"},
      {-0.001, 4, 2, "-.00"},
      {0.5, 4, 3, ".500"},
      {-0.5, 4, 2, "-.50"},
      {0.999, 2, 1, "**"},  // 1.0 has no zero to leave out
      {0.0, 2, 0, "0."},
      {0.0, 1, 0, "*"},
      {0.0, 1, 1, "*"},
      {999999.95, 8, 1, "999999.9"},
      {999999.96, 8, 1, "********"},
      {1e300, 9, 1, "*********"},
      {infinity, 8, 2, "Infinity"},
      {infinity, 7, 2, "    Inf"},
      {-infinity, 8, 2, "    -Inf"},
      {-infinity, 3, 1, "***"},
      {std::numeric_limits<double>::quiet_NaN(), 5, 2, "  NaN"},
      {std::numeric_limits<double>::quiet_NaN(), 2, 1, "**"},
  };
  for (const example& e : examples) {
    EXPECT_EQ(fixed_edit(e.value, e.width, e.decimals), e.expected)
        << e.value << " in F" << e.width << '.' << e.decimals;
  }
  EXPECT_EQ(fixed_edit(1e300, 400, 20).size(), 400U);
}

TEST(IntegerEdit, stars_stand_where_the_number_and_its_sign_do_not_fit) {
  EXPECT_EQ(integer_edit(12345678, 8), "12345678");
  EXPECT_EQ(integer_edit(-1234567, 8), "-1234567");
  EXPECT_EQ(integer_edit(-12345678, 8), "********");
  EXPECT_EQ(integer_edit(0, 3), "  0");
  EXPECT_EQ(integer_edit(std::numeric_limits<std::int64_t>::min(), 20), "-9223372036854775808");
}

}  // namespace
}  // namespace velmorankite::platform
