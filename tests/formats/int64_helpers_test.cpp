// SPDX-License-Identifier: MIT
#include "formats/int64_helpers.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmorankite {
namespace {

constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();

TEST(Int64Halves, the_low_half_is_unsigned) {
  const int64_halves minus_one{-1, -1};
  EXPECT_EQ(joined({0, -1}), 0xFFFFFFFFLL);
  EXPECT_EQ(joined(minus_one), -1);
  EXPECT_EQ(parted(-1), minus_one);
  for (const std::int64_t value : {lowest, std::int64_t{-4294967296}, std::int64_t{2147483648}}) {
    EXPECT_EQ(joined(parted(value)), value);
  }
  EXPECT_EQ(COMPAREI8({0, -1}, {0, 1}), 1);
  EXPECT_EQ(COMPAREI8({-1, 1}, {0, 0}), -1);
  EXPECT_EQ(COMPAREI8({7, 7}, {7, 7}), 0);
}

TEST(Int64Halves, carries_and_borrows_pass_between_the_halves) {
  EXPECT_EQ(ADDI8({0, -1}, {0, 1}), (int64_halves{1, 0}));
  EXPECT_EQ(SUBTRACTI8({1, 0}, {0, 1}), (int64_halves{0, -1}));
  EXPECT_EQ(MULTIPLYI8({0, -1}, {0, 2}), (int64_halves{1, -2}));
  EXPECT_EQ(DIVIDEI8({1, 0}, {0, 2}), parted(2147483648));
}

TEST(Int64Arithmetic, division_truncates_and_knows_no_failure) {
  EXPECT_EQ(DIVIDEI8A(-7, 2), -3);
  EXPECT_EQ(DIVIDEI8A(7, 0), 0);
  EXPECT_EQ(DIVIDEI8A(lowest, -1), lowest);
  EXPECT_EQ(ADDI8A(std::numeric_limits<std::int64_t>::max(), 1), lowest);
  EXPECT_EQ(MULTIPLYI8A(lowest, -1), lowest);
}

TEST(SizeInWords, the_unit_grows_with_the_count) {
  struct example {
    std::int64_t value;
    std::size_t digits_width, size_width;
    const char* digits;
    const char* size;
  };
  const example examples[] = {
      {0, 20, 20, "0", "0 bytes"},
      {1023, 20, 20, "1023", "1023 bytes"},
      {1024, 20, 20, "1024", "1.00 KB"},
      {1048575, 20, 20, "1048575", "1024.00 KB"},
      {1048576, 20, 20, "1048576", "1.00 MB"},
      {1610612736, 20, 20, "1610612736", "1.50 GB"},
      {9999999999999999, 20, 20, "9999999999999999", "9094.95 TB"},
      {10000000000000000, 20, 20, "*", "*"},
      {-1024, 20, 20, "-1024", "*"},
      {1048576, 6, 4, "*", "1.00"},
      {1048576, 7, 6, "1048576", "1.00 M"},
      {1048576, 7, 3, "1048576", "*"},
  };
  for (const example& e : examples) {
    const size_texts texts = ENCODEI8A(e.value, e.digits_width, e.size_width);
    EXPECT_EQ(texts.digits, e.digits) << e.value;
    EXPECT_EQ(texts.size, e.size) << e.value;
    EXPECT_EQ(ENCODEI8(parted(e.value), e.digits_width, e.size_width).size, e.size);
  }
}

}  // namespace
}  // namespace velmorankite
