// SPDX-License-Identifier: MIT
#include "condition/hole_filling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "condition/multi_level_fill.h"
#include "formats/describe_grid.h"
#include "platform/io_error.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::TemporaryFolder;

float cell_of_disc(std::int32_t column, std::int32_t row) {
  const int x = column - 8;
  const int y = row - 6;
  const bool hole = x == 0 && y == 0;
  return x * x + y * y < 20 && !hole ? static_cast<float>(3 * column - row) : dummy;
}

class HoleFilling : public ::testing::Test {
 protected:
  Status fill(const char* input, std::int32_t road = 1, std::int32_t limit = 0) {
    return GRID_FILL((folder / input).string(), (folder / "out.grd").string(), road, limit, minimum,
                     maximum, filled);
  }

  TemporaryFolder folder;
  float minimum = 9.0F;
  float maximum = 9.0F;
  std::int64_t filled = 9;
};

TEST_F(HoleFilling, blanks_open_to_the_edge_are_filled_and_data_kept_whatever_the_limit) {
  for (const auto& [sense, limit] : {std::pair(1, 0), std::pair(-2, 100)}) {
    testing::write_grid(folder / "a.grd", {10.0, 20.0, 2.0, 3.0, 17, 12}, cell_of_disc, sense);
    EXPECT_EQ(fill("a.grd", 1, limit), success);
    EXPECT_EQ(minimum, 0.0F);
    EXPECT_EQ(maximum, 0.0F);
    const std::vector<float> before = testing::read_grid(folder / "a.grd");
    const std::vector<float> cells = testing::read_grid(folder / "out.grd");
    for (std::size_t i = 0; i < cells.size(); ++i) {
      EXPECT_NEAR(cells[i], 18.0F, 30.0F);  // the data reach from 5 to 33
      EXPECT_TRUE(cells[i] == before[i] || before[i] == dummy);
    }
    EXPECT_NEAR(cells[testing::cell_index(8, 6, 17)], 18.0F, 1E-4F);  // the plane goes on
    EXPECT_GT(filled, std::ranges::count(before, dummy));
  }
}

TEST_F(HoleFilling, stops_with_a_status_and_no_output) {
  const auto all_blank = [](std::int32_t, std::int32_t) { return dummy; };
  testing::write_grid(folder / "disc.grd", {0.0, 0.0, 1.0, 1.0, 17, 12}, cell_of_disc);
  testing::write_grid(folder / "blank.grd", {0.0, 0.0, 1.0, 1.0, 17, 12}, all_blank);
  testing::write_grid(folder / "thin.grd", {0.0, 0.0, 1.0, 1.0, 17, 3}, cell_of_disc);
  std::filesystem::create_directory(folder / "folder.grd");
  struct example {
    const char* input;
    std::int32_t road;
    Status status;
  };
  for (const example& e :
       {example{"blank.grd", 1, fill_no_valid_cell}, example{"thin.grd", 1, fill_no_valid_cell},
        example{"none.grd", 1, file_missing}, example{"folder.grd", 1, fill_input_unopened},
        example{"blank.grd", 0, fill_no_valid_cell}, example{"none.grd", 0, fill_input_unopened}}) {
    EXPECT_EQ(fill(e.input, e.road), e.status) << e.input;
    EXPECT_EQ(filled, 0) << e.input;
    EXPECT_FALSE(std::filesystem::exists(folder / "out.grd")) << e.input;
  }
}

TEST_F(HoleFilling, sweeps_fill_enclosed_holes_alone_whatever_the_sense_and_in_place_too) {
  const auto disc_and_nan = [](std::int32_t column, std::int32_t row) {
    return column == 1 && row == 2 ? std::nanf("") : cell_of_disc(column, row);
  };
  for (const std::int32_t sense : {1, -2}) {
    testing::write_grid(folder / "a.grd", {10.0, 20.0, 2.0, 3.0, 17, 12}, disc_and_nan, sense);
    std::vector<float> expected = testing::read_grid(folder / "a.grd");
    expected[testing::cell_index(1, 2, 17)] = dummy;
    expected[testing::cell_index(8, 6, 17)] = 18.0F;
    EXPECT_EQ(fill("a.grd", 0), success);
    EXPECT_EQ(filled, 1);
    EXPECT_EQ(minimum, 5.0F);
    EXPECT_EQ(maximum, 31.0F);
    EXPECT_EQ(testing::first_difference(expected, testing::read_grid(folder / "out.grd")), "");
    EXPECT_EQ(testing::describe(folder / "out.grd").ints.storage_sense, sense);
    EXPECT_EQ(GRID_FILL((folder / "a.grd").string(), " ", 0, 0, minimum, maximum, filled), success);
    EXPECT_EQ(testing::first_difference(expected, testing::read_grid(folder / "a.grd")), "");
    EXPECT_THROW((void)GRID_FILL((folder / "a.grd").string(), (folder / "." / "a.grd").string(), 0,
                                 0, minimum, maximum, filled),
                 platform::IoError);
  }
}

}  // namespace
}  // namespace velmorankite
