// SPDX-License-Identifier: MIT
#include "condition/detrend.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <string>

#include "grid/standard_header.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::read_grid;
using testing::write_grid;
using names = std::vector<std::string>;

constexpr Lattice lattice{500.0, 900.0, 10.0, 5.0, 9, 7};

// z = 3 + 0.5 (x - x_min) + 2 (y - y_min), with a hole and a blank corner.
float sloping(std::int32_t column, std::int32_t row) {
  const bool blank = (column == 4 && row == 3) || (column <= 2 && row == 1);
  return blank ? dummy
               : 3.0F + 0.5F * 10.0F * static_cast<float>(column - 1) +
                     2.0F * 5.0F * static_cast<float>(row - 1);
}

class Detrend : public ::testing::Test {
 protected:
  [[nodiscard]] std::string name(const char* file) const { return (folder / file).string(); }
  testing::TemporaryFolder folder;
  float mean = -1.0F;
  plane trend;
};

TEST_F(Detrend, a_plane_is_found_and_taken_out_on_either_scope_and_sense) {
  for (const fit_scope scope : {fit_scope::line_ends, fit_scope::all_cells}) {
    for (const std::int32_t sense : {1, -2}) {
      write_grid(folder / "in.grd", lattice, sloping, sense);
      ASSERT_EQ(GRID_DETREND_PLANE(scope, name("in.grd"), name("out.grd"), mean, trend), success);
      EXPECT_NEAR(trend.b, 0.5F, 1E-5F);
      EXPECT_NEAR(trend.c, sense == 1 ? 2.0F : -2.0F, 1E-5F);
      // On sense -2 the rows count down from the highest, which is row 1 of the plane and not 0.
      EXPECT_NEAR(trend.a, sense == 1 ? 3.0F : 3.0F + 2.0F * 5.0F * 7.0F, 1E-3F);
      const std::vector<float> residual = read_grid(folder / "out.grd");
      const std::vector<float> surface = read_grid(folder / "out_trend.grd");
      for (std::size_t i = 0; i < residual.size(); ++i) {
        const auto column = static_cast<std::int32_t>(i % 9) + 1;
        const auto row = static_cast<std::int32_t>(i / 9) + 1;
        EXPECT_NEAR(surface[i], 3 + 5 * (column - 1) + 10 * (row - 1), 1E-3F);
        EXPECT_NEAR(residual[i], is_valid(sloping(column, row)) ? 0.0F : dummy, 1E-3F);
      }
    }
  }
}

TEST_F(Detrend, mean_is_of_all_valid_cells_and_line_ends_count_their_corners_twice) {
  // One high corner among zeros. It ends its row and its column, so the 3 x 3 grid has 12 samples
  // of which two are the corner: n a = Sz with both slopes' pull worked out by hand.
  write_grid(folder / "in.grd", {0.0, 0.0, 1.0, 1.0, 3, 3},
             [](int column, int row) { return column == 3 && row == 3 ? 9.0F : 0.0F; });
  ASSERT_EQ(GRID_DETREND(name("in.grd"), "  ", mean, trend), success);
  EXPECT_EQ(mean, 1.0F);
  EXPECT_EQ(folder.names(), names{"in.grd"});
  // Centred at (1, 1): Sz = 18, S(x-1)z = S(y-1)z = 18; S(x-1)^2 = 10, S(x-1)(y-1) = 0.
  EXPECT_NEAR(trend.b, 1.8F, 1E-6F);
  EXPECT_NEAR(trend.c, 1.8F, 1E-6F);
  EXPECT_NEAR(trend.a, 18.0F / 12.0F - 3.6F, 1E-6F);
  // The earlier form has the eight cells round the middle, each of them once.
  ASSERT_EQ(GRID_DETREND_OLD(name("in.grd"), name("out.grd"), mean, trend), success);
  EXPECT_NEAR(trend.b, 1.5F, 1E-6F);
  EXPECT_NEAR(trend.c, 1.5F, 1E-6F);
  EXPECT_NEAR(trend.a, 9.0F / 8.0F - 3.0F, 1E-6F);
}

TEST_F(Detrend, cells_that_end_no_line_do_not_pull_at_the_plane_of_the_line_ends) {
  // A plane at the ends of rows and columns, which begin and end in different places, and 1000
  // everywhere else, in the top right corner too: alone in its row and its column.
  const auto valid = [](int column, int row) {
    return (column == 9 && row == 7) || (column >= 1 && column <= 8 && row >= 1 && row <= 6 &&
                                         column + 2 * row > 6 && column + row < 13);
  };
  const auto inner = [&](int column, int row) {
    return valid(column - 1, row) && valid(column + 1, row) && valid(column, row - 1) &&
           valid(column, row + 1);
  };
  write_grid(folder / "in.grd", lattice, [&](int column, int row) {
    return !valid(column, row) ? std::nanf("")
           : inner(column, row) || row == 7
               ? 1000.0F
               : 3.0F + 5.0F * static_cast<float>(column - 1) + 10.0F * static_cast<float>(row - 1);
  });
  double sum = 0.0;
  int count = 0;
  for (const float cell : read_grid(folder / "in.grd")) {
    sum += is_valid(cell) ? static_cast<double>(cell) : 0.0;
    count += is_valid(cell) ? 1 : 0;
  }
  for (const auto& detrend : {GRID_DETREND, GRID_DETREND_OLD}) {
    ASSERT_EQ(detrend(name("in.grd"), name("out.grd"), mean, trend), success);
    EXPECT_NEAR(trend.a, 3.0F, 1E-3F);
    EXPECT_NEAR(trend.b, 0.5F, 1E-4F);
    EXPECT_NEAR(trend.c, 2.0F, 1E-4F);
    const std::vector<float> residual = read_grid(folder / "out.grd");
    EXPECT_NEAR(mean, sum / count, 1E-3);
    EXPECT_NEAR(residual[3 * 9 + 4], 1000.0F - 53.0F, 1E-2F);
    EXPECT_FALSE(is_valid(residual[6 * 9 + 5]));
  }
}

TEST_F(Detrend, samples_that_determine_no_plane_give_their_mean) {
  write_grid(folder / "row.grd", {0.0, 0.0, 1.0, 1.0, 4, 1},
             [](int column, int) { return static_cast<float>(column); });
  ASSERT_EQ(GRID_DETREND_PLANE(fit_scope::all_cells, name("row.grd"), "", mean, trend), success);
  EXPECT_EQ(trend.a, 2.5F);
  EXPECT_EQ(trend.b, 0.0F);
  // Lines of samples whose coordinates are no whole numbers: rounding must not pass for a slope.
  using place = bool (*)(std::int32_t column, std::int32_t row);
  for (const place on_line : {place([](int column, int) { return column == 11; }),
                              place([](int, int row) { return row == 7; }),
                              place([](int column, int row) { return column == row; })}) {
    for (const std::int32_t sense : {1, -2}) {
      write_grid(
          folder / "line.grd", {0.0, 0.0, 30.1, 7.3, 30, 40},
          [&](int column, int row) {
            return on_line(column, row) ? 100.0F + 0.1F * static_cast<float>(column + row) : dummy;
          },
          sense);
      ASSERT_EQ(GRID_DETREND_PLANE(fit_scope::all_cells, name("line.grd"), "", mean, trend),
                success);
      EXPECT_NEAR(trend.a, mean, 1.0E-4F);
      EXPECT_EQ(trend.b, 0.0F);
      EXPECT_EQ(trend.c, 0.0F);
    }
  }
  // No row or column has two valid cells: no sample, so the mean of the cells themselves.
  write_grid(folder / "diagonal.grd", {0.0, 0.0, 1.0, 1.0, 4, 4}, [](int column, int row) {
    return column == row ? static_cast<float>(column) : dummy;
  });
  ASSERT_EQ(GRID_DETREND(name("diagonal.grd"), "", mean, trend), success);
  EXPECT_EQ(trend.a, 2.5F);
  EXPECT_EQ(trend.c, 0.0F);
  ASSERT_EQ(GRID_DETREND_OLD(name("diagonal.grd"), name("out.grd"), mean, trend), success);
  EXPECT_EQ(trend.a, 2.5F);
  write_grid(folder / "one.grd", {0.0, 0.0, 1.0, 1.0, 4, 4},
             [](int column, int row) { return column == 2 && row == 3 ? 6.0F : dummy; });
  ASSERT_EQ(GRID_DETREND(name("one.grd"), "", mean, trend), success);
  EXPECT_EQ(trend.a, 6.0F);
}

TEST_F(Detrend, grids_that_cannot_be_fitted_or_written_have_their_own_status) {
  EXPECT_EQ(GRID_DETREND(name("missing.grd"), "", mean, trend), detrend_input_unreadable);
  EXPECT_EQ(GRID_DETREND(folder.path().string(), "", mean, trend), detrend_input_unreadable);
  write_grid(folder / "blank.grd", lattice, [](int, int) { return std::nanf(""); });
  EXPECT_EQ(GRID_DETREND(name("blank.grd"), name("out.grd"), mean, trend), detrend_no_valid_cell);
  EXPECT_EQ(mean, 0.0F);
  EXPECT_EQ(GRID_DETREND_OLD(name("blank.grd"), name("out.grd"), mean, trend),
            detrend_no_valid_cell);
  EXPECT_EQ(folder.names(), names{"blank.grd"});
  write_grid(folder / "in.grd", lattice, sloping);
  EXPECT_EQ(GRID_DETREND(name("in.grd"), name("no/out.grd"), mean, trend),
            detrend_residual_unwritable);
  const int failures = testing::fail_each_call(
      testing::system_call::write, ENOSPC,
      [&] { (void)GRID_DETREND(name("in.grd"), name("out.grd"), mean, trend); },
      [&](int) {
        EXPECT_EQ(folder.names(), (names{"blank.grd", "in.grd"}));
      });
  EXPECT_EQ(failures, 2 + 2 * lattice.y_count);
  std::filesystem::remove(folder / "out.grd");
  std::filesystem::remove(folder / "out_trend.grd");
  std::filesystem::create_directory(folder / "out_trend.grd");
  EXPECT_EQ(GRID_DETREND(name("in.grd"), name("out.grd"), mean, trend), detrend_trend_unwritable);
  EXPECT_EQ(folder.names(), (names{"blank.grd", "in.grd", "out_trend.grd"}));
}

TEST_F(Detrend, the_outputs_take_the_scaling_and_the_statistics_of_the_input) {
  write_grid(folder / "in.grd", lattice, sloping);
  standard_header header = float_grid_header(lattice);
  header.z_base = 7.0;
  header.stat_min = 1.0F;
  header.stat_max = 2.0F;
  header.stat_median = 3.0F;
  platform::BinaryFile file(folder / "in.grd", platform::open_mode::read_write);
  OUTPUT_GEOSOFT_HEADER(file, header);
  file.close();
  ASSERT_EQ(GRID_DETREND(name("in.grd"), name("out.grd"), mean, trend), success);
  for (const char* output : {"out.grd", "out_trend.grd"}) {
    const platform::BinaryFile written(folder / output, platform::open_mode::read);
    standard_header of;
    ASSERT_EQ(READ_GEOSOFT_HEADER(written, of), success);
    EXPECT_EQ((std::vector<double>{of.z_base, of.z_mult, of.stat_min, of.stat_max, of.stat_median,
                                   of.stat_mean}),
              (std::vector<double>{7.0, 1.0, 8.0, 9.0, 10.0, 10.0}));
  }
}

TEST_F(Detrend, names_of_the_plane_follow_from_the_first_dot_of_the_file) {
  const std::filesystem::path sub = folder / "a.b";
  std::filesystem::create_directory(sub);
  write_grid(folder / "in.grd", lattice, sloping);
  for (const char* output : {"a.b/mag_WDtmp.1.grd", "a.b/map.x.grd", "a.b/plain"}) {
    ASSERT_EQ(GRID_DETREND(name("in.grd"), name(output), mean, trend), success);
  }
  for (const char* expected : {"mag_trend.grd", "map_trend.grd", "_trend.grd", "plain"}) {
    EXPECT_TRUE(std::filesystem::exists(sub / expected)) << expected;
  }
}

TEST_F(Detrend, the_earlier_form_turns_sense_minus_2_round_and_spares_lone_cells) {
  write_grid(
      folder / "in.grd", lattice,
      [](int column, int row) { return row == 7 && column != 5 ? dummy : sloping(column, row); },
      -2);
  ASSERT_EQ(GRID_DETREND_OLD(name("in.grd"), name("out.grd"), mean, trend), success);
  EXPECT_NEAR(trend.b, 0.5F, 1E-5F);
  EXPECT_NEAR(trend.c, -2.0F, 1E-5F);
  EXPECT_EQ(testing::describe(folder / "out.grd").ints.storage_sense, 1);
  EXPECT_EQ(testing::describe(folder / "out_detrend.grd").ints.storage_sense, 1);
  const std::vector<float> residual = read_grid(folder / "out.grd");
  EXPECT_NEAR(residual[8], 0.0F, 1E-3F);
  EXPECT_EQ(residual[6 * 9 + 4], sloping(5, 7));
}

}  // namespace
}  // namespace velmorankite
