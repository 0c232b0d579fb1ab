// SPDX-License-Identifier: MIT
#include "support/data_field.h"

#include <gtest/gtest.h>

#include "grid/dummy.h"
#include "support/foreign_grids.h"
#include "support/temporary_folder.h"

namespace velmorankite::testing {

void expect_data_field(std::string_view name, const grid_description& grid) {
  ASSERT_EQ(grid.ints.x_count, 13);
  ASSERT_EQ(grid.ints.y_count, 7);
  EXPECT_DOUBLE_EQ(grid.reals.x_min, 100.3);
  EXPECT_DOUBLE_EQ(grid.reals.x_max, 124.3);
  EXPECT_DOUBLE_EQ(grid.reals.y_min, -20.7);
  EXPECT_DOUBLE_EQ(grid.reals.y_max, 9.3);
  EXPECT_DOUBLE_EQ(grid.reals.x_cell, 2.0);
  EXPECT_DOUBLE_EQ(grid.reals.y_cell, 5.0);
  const std::string bytes = read_file(test_data(name));
  for (std::int32_t row = 1; row <= 7; ++row) {
    for (std::int32_t column = 1; column <= 13; ++column) {
      const bool blank = row + column == 2 || row + column == 20;
      EXPECT_EQ(plain_cell(bytes, grid, column, row),
                blank ? dummy : static_cast<float>(10 * row + column * column))
          << name << " " << column << " " << row;
    }
  }
}

}  // namespace velmorankite::testing
