// SPDX-License-Identifier: MIT
#include "utilities/drape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "grid/dummy.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

constexpr Lattice lattice{0.0, 0.0, 1.0, 1.0, 8, 30};
const std::vector<double> profile_x = {1.0, 2.0, 3.0, 5.0};

struct Drape : ::testing::Test {
  testing::TemporaryFolder folder;
  const std::string in = (folder / "in.grd").string();
  const std::string out = (folder / "out.grd").string();
  std::vector<double> heights;

  Drape() {
    standard_header header = float_grid_header(lattice, -2);
    header.z_base = 5.0;
    header.process_flag = 3;
    header.stat_min = -1.0F;
    platform::BinaryFile file(in, platform::open_mode::create);
    OUTPUT_GEOSOFT_HEADER(file, header);
    for (int row = 30; row >= 1; --row) {
      for (int column = 1; column <= 8; ++column) {
        file.write_value(513 + 4 * ((30 - row) * 8 + column - 1), value(column - 1, row - 1));
      }
    }
  }

  // A plane: shifts and heights between the cells show too.
  static float value(double x, double y) { return static_cast<float>(64.0 * x + y); }

  [[nodiscard]] drape_request request() const {
    return {in, out, lattice, 1, std::span(profile_x).first(heights.size()), heights};
  }
};

TEST_F(Drape, columns_rise_by_the_profile_and_contents_move_by_minus_the_shift) {
  // A parabola within the profile, which its cubic meets, and level beyond.
  const auto height = [](double x) {
    const double held = std::min(std::max(x, 1.0), 5.0);
    return 0.5 + held + 0.5 * held * held;
  };
  for (const double x : profile_x) {
    heights.push_back(height(x));
  }
  drape_request asked = request();
  asked.out = {0.5, 3.0, 0.5, 2.0, 16, 12};
  asked.x_shift = 1.0;
  asked.y_shift = 0.25;
  ASSERT_EQ(GEODRAPE(asked), success);
  const std::vector<float> cells = testing::read_grid(out);
  for (int row = 1; row <= 12; ++row) {
    for (int column = 1; column <= 16; ++column) {
      const double x = asked.out.x(column) + 1.0;
      const double y = asked.out.y(row) - height(asked.out.x(column)) + 0.25;
      const bool inside = x < 8.0 && y > -1.0 && y < 30.0;
      EXPECT_NEAR(cells[testing::cell_index(column, row, 16)], inside ? value(x, y) : dummy, 1.0E-4)
          << x << ' ' << y;
    }
  }
  const grid_description grid = testing::describe(out);
  EXPECT_EQ(grid.reals.z_base, 5.0);
  EXPECT_EQ(grid.ints.band_select, 3);  // the process flag
  EXPECT_EQ(grid.ints.storage_sense, 1);
}

TEST_F(Drape, a_level_profile_of_two_points_shifts_the_whole_grid) {
  heights = {3.0, 3.0};
  ASSERT_EQ(GEODRAPE(request()), success);
  const std::vector<float> before = testing::read_grid(in);
  const std::vector<float> after = testing::read_grid(out);
  for (int row = 4; row <= 30; ++row) {
    for (int column = 1; column <= 8; ++column) {
      EXPECT_EQ(after[testing::cell_index(column, row, 8)],
                before[testing::cell_index(column, row - 3, 8)]);
    }
  }
  EXPECT_EQ(after[testing::cell_index(4, 1, 8)], dummy);
}

TEST_F(Drape, a_blank_name_or_a_profile_that_is_none_is_refused) {
  heights = {3.0};
  EXPECT_EQ(GEODRAPE(request()), resampling_profile_unsound);
  heights = {3.0, 4.0};
  const std::vector<double> level_x = {2.0, 2.0};
  drape_request asked = request();
  asked.profile_x = level_x;
  EXPECT_EQ(GEODRAPE(asked), resampling_profile_unsound);
  asked = request();
  asked.output = " ";
  EXPECT_EQ(GEODRAPE(asked), resampling_header_unsound);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"in.grd"});
}

}  // namespace
}  // namespace velmorankite
