// SPDX-License-Identifier: MIT
#include "grid/value_range.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "grid/dummy.h"

namespace velmorankite {
namespace {

// 16 ranges go on side by side: the extremes lie in a whole piece, in the rest and in another row.
TEST(ValueRange, widens_over_valid_cells_wherever_the_extremes_lie) {
  for (const std::size_t count : {1, 5, 16, 37, 64}) {
    for (std::size_t low = 0; low < count; ++low) {
      value_range range;
      range.widen(std::vector<float>(3, 6.0F));
      std::vector<float> cells(count, 5.0F);
      cells[low] = 2.0F;
      range.widen(cells);
      EXPECT_EQ(range.smallest, 2.0F) << count << " " << low;
      EXPECT_EQ(range.largest, 6.0F);
      cells[low] = 9.0F;
      range.widen(cells);
      EXPECT_EQ(range.smallest, 2.0F);
      EXPECT_EQ(range.largest, 9.0F) << count << " " << low;
    }
  }
  value_range range;
  range.widen(std::vector<float>{dummy, 4.0F, std::nanf(""), -1.0E31F});
  EXPECT_EQ(range.smallest, 4.0F);
  EXPECT_EQ(range.largest, 4.0F);
}

}  // namespace
}  // namespace velmorankite
