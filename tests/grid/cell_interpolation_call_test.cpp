// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "grid/cell_interpolation.h"
#include "grid/dummy.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/sampled_grid.h"

namespace velmorankite {
namespace {

using testing::first_difference;
using testing::rough_coordinates;
using testing::SampledGrid;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

class WholeCall : public ::testing::Test {
 protected:
  Status call(std::int32_t count) {
    return GEO_CELL_INTERPOLATION(source_flag, path, grid.description(), grid.stored(), mode, count,
                                  x, y, values);
  }

  SampledGrid grid{{0.0, 0.0, 1.0, 1.0, 3, 3},
                   [](int column, int row) { return static_cast<float>(column * row); }};
  std::vector<double> x = {0.0, 1.0, 2.0, 1.5, 9.0};
  std::vector<double> y = {0.0, 1.0, 2.0, 1.5, 0.0};
  std::vector<float> values = std::vector<float>(5, 77.0F);
  std::int32_t source_flag = 0;
  std::string path = grid.path().string() + "   ";
  std::int32_t mode = 1;
};

TEST_F(WholeCall, a_long_list_of_points_has_the_values_of_the_plain_reading_on_both_roads) {
  std::mt19937 generator(8);
  x = rough_coordinates(0.0, 1.0, 3, 2500, generator);
  for (const bool one_row : {false, true}) {
    y = one_row ? std::vector<double>(x.size(), 0.7)
                : rough_coordinates(0.0, 1.0, 3, 2500, generator);
    const std::vector<float> expected = grid.plain_values(x, y);
    for (source_flag = 0; source_flag < 2; ++source_flag) {
      values.assign(x.size(), 77.0F);
      EXPECT_EQ(call(2500), success);
      EXPECT_EQ(first_difference(expected, values), "");
    }
  }
}

TEST_F(WholeCall, a_negative_count_takes_logarithms_and_leaves_the_mode_so) {
  EXPECT_EQ(call(-4), success);
  EXPECT_EQ(mode, 2);
  EXPECT_EQ(values[3], grid.plain_values({1.5}, {1.5}, 2).front());
  EXPECT_EQ(values[4], 77.0F);
}

TEST_F(WholeCall, a_bad_call_leaves_values_and_mode_alone) {
  const std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
  for (const std::int32_t count : {0, 6, -6, lowest}) {
    EXPECT_EQ(call(count), interpolation_bad_call) << count;
  }
  path = "     ";
  EXPECT_EQ(call(-5), interpolation_bad_call);
  // Cells in memory that cannot be what the description says.
  using change = void (*)(grid_description&);
  for (const change spoil : {+[](grid_description& d) { d.ints.x_count = 4; },
                             +[](grid_description& d) { d.ints.y_count = 0; },
                             +[](grid_description& d) { d.reals.x_cell = 0.0; },
                             +[](grid_description& d) { d.reals.y_cell = nan; }}) {
    grid_description wrong = grid.description();
    spoil(wrong);
    EXPECT_EQ(GEO_CELL_INTERPOLATION(1, "", wrong, grid.stored(), mode, 5, x, y, values),
              interpolation_bad_call);
  }
  EXPECT_EQ(mode, 1);
  EXPECT_EQ(values, std::vector<float>(5, 77.0F));
}

TEST_F(WholeCall, limits_that_do_not_fit_the_counts_index_nothing) {
  grid_description wild = grid.description();
  wild.reals.x_max = 1.0E300;
  wild.reals.y_max = std::numeric_limits<double>::infinity();
  x = {1.0E299, 2.5, 1.0E18, -0.5, 3.0E9};
  y = {1.0, 1.0E300, 1.0E18, std::numeric_limits<double>::infinity(), 4.0E9};
  EXPECT_EQ(GEO_CELL_INTERPOLATION(0, path, wild, {}, mode, 5, x, y, values), success);
  wild.reals.x_max = nan;
  EXPECT_EQ(GEO_CELL_INTERPOLATION(0, path, wild, {}, mode, 5, x, y, values), success);
  EXPECT_EQ(values, std::vector<float>(5, dummy));
}

TEST_F(WholeCall, a_file_that_shrinks_or_fails_is_a_stop) {
  EXPECT_GT(testing::fail_each_call(
                testing::system_call::read, EIO, [&] { (void)call(5); }, [](int) {}),
            0);
  EXPECT_EQ(testing::fail_each_call(
                testing::system_call::open, EACCES, [&] { (void)call(5); }, [](int) {}),
            1);
  CellInterpolator open_grid = grid.open();
  std::filesystem::resize_file(grid.path(), 512 + 20);
  EXPECT_THROW(open_grid.row(x, 2.0, values), platform::IoError);
  open_grid.row(std::vector<double>{0.0, 1.0}, 0.0, std::span(values).first(2));
  EXPECT_EQ(values[1], 2.0F);
  EXPECT_THROW((void)call(5), platform::IoError);
}

}  // namespace
}  // namespace velmorankite
