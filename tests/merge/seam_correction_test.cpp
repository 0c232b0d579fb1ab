// SPDX-License-Identifier: MIT
#include "merge/seam_correction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "grid/dummy.h"
#include "merge/stitch.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using names = std::vector<std::string>;
using testing::read_grid;

TEST(SeamCorrection, half_width_follows_the_distance_within_the_length_of_the_line) {
  struct example {
    float distance;
    double x_cell;
    std::int32_t samples, expected;
  };
  const example examples[] = {
      {1.0F, 10.0, 100, 5},   {19.9F, 10.0, 100, 5}, {20.0F, 10.0, 100, 5},
      {20.0F, 10.0, 8, 2},    {40.0F, 10.0, 100, 9}, {95.0F, 10.0, 40, 20},
      {100.0F, 10.0, 40, 10}, {95.0F, 10.0, 30, 7},  {1.0E30F, 1.0E-9, 30, 7}};
  for (const example& e : examples) {
    EXPECT_EQ(smoothing_half_width(e.distance, e.x_cell, e.samples), e.expected) << e.distance;
  }
}

TEST(SeamCorrection, the_running_mean_clamps_on_an_open_line_and_wraps_on_a_closed_one) {
  const std::vector<float> residuals{1, 2, 3, 4, 5, 6, 7};
  EXPECT_EQ(smooth_along_line(residuals, 2, false),
            (std::vector<float>{1.6F, 2.2F, 3, 4, 5, 5.8F, 6.4F}));
  EXPECT_EQ(smooth_along_line(residuals, 2, true),
            (std::vector<float>{3.8F, 3.4F, 3, 4, 5, 4.6F, 4.2F}));
}

TEST(SeamCorrection, values_go_to_the_cell_of_their_point_and_later_ones_win) {
  const Lattice window{100.0, 50.0, 10.0, 5.0, 4, 3};
  std::vector<float> cells(12, dummy);
  // Half way between two columns goes to the lower; beyond the window to its edge.
  place_on_window({{115.0, 115.1, 80.0, 999.0, 130.0, 131.0},
                   {50.0, 50.0, 57.6, 60.0, 55.0, 54.0},
                   {1, 2, 3, 4, 5, 6}},
                  window, cells);
  EXPECT_EQ(cells,
            (std::vector<float>{dummy, 1, 2, dummy, dummy, dummy, dummy, 6, 3, dummy, dummy, 4}));
}

// A ring of 120 samples about the middle of the window, with a residual just behind its start.
TEST(SeamCorrection, counts_the_samples_that_both_grids_have_and_goes_on_round_a_closed_line) {
  const testing::TemporaryFolder folder;
  const testing::CurrentFolder inside(folder.path());
  stitch_parameters parameters;
  parameters.report_name = "seam.txt";
  parameters.correction_distance = 10.0F;
  parameters.lattice = {0.0, 0.0, 10.0, 10.0, 61, 61};
  seam_band band;
  band.window.lattice = parameters.lattice;
  std::vector<float> grid_1(120);
  std::vector<float> grid_2(120);
  for (std::size_t i = 0; i < 120; ++i) {
    const double angle = 2.0 * 3.14159265358979 * static_cast<double>(i) / 120.0;
    band.sample_x.push_back(300.0 + 200.0 * std::cos(angle));
    band.sample_y.push_back(300.0 + 200.0 * std::sin(angle));
    grid_1[i] = i < 8 ? 12.0F : 0.0F;
  }
  grid_1[60] = grid_2[70] = dummy;
  const auto at_the_start = [&](bool closed) {
    band.closed = closed;
    seam_correction correction;
    EXPECT_EQ(build_seam_correction(parameters, band, grid_1, grid_2, correction).why, "");
    const double rms = residual_rms(correction, band, grid_1, grid_2);
    EXPECT_GT(rms, 0.0);
    EXPECT_LT(rms, 4.0);
    const std::vector<float> cells = read_grid(correction.path);
    EXPECT_LT(*std::ranges::max_element(cells), 12.0F);
    EXPECT_GT(*std::ranges::min_element(cells), -1.0F);
    return cells[testing::cell_index(51, 31, 61)];  // of the first sample
  };
  EXPECT_LT(at_the_start(true), at_the_start(false) - 1.0F);
  // A read that fails at any place is told as what it is.
  std::string why;
  std::string all;
  testing::fail_each_call(
      testing::system_call::read, EIO,
      [&] {
        seam_correction correction;
        why = build_seam_correction(parameters, band, grid_1, grid_2, correction).why;
        if (!why.empty()) {
          throw platform::IoError("seam.txt", why);
        }
      },
      [&](int nth) {
        EXPECT_EQ(why.find("success"), std::string::npos) << nth << " " << why;
        EXPECT_FALSE(std::filesystem::exists("seam_stitch_grid_smooth.grd"));
        all += why;
      });
  EXPECT_NE(all.find("seam_stitch_grid_smooth.grd cannot be read back: the first 256 bytes"),
            std::string::npos);
  const std::string log = testing::read_file("seam_stitch_grid_smooth_trs.log");
  EXPECT_NE(log.find("Filter index : 101 1 2 0\n"), std::string::npos);
  EXPECT_NE(log.find("Allocate padded grid arrays : 129 129\n"), std::string::npos);
}

// Two grids of one field; grid 2 lies lower by a level and by a drift along the line, which runs
// down the middle. The drift is one wave over the whole line, 40 correction distances long.
class DriftingSeam : public ::testing::Test {
 protected:
  static constexpr Lattice lattice{0.0, 0.0, 10.0, 10.0, 121, 161};
  static constexpr double level = 30.0;

  static double field(double x, double y) {
    return 5.0 * std::sin(x / 150.0) + 3.0 * std::cos(y / 210.0);
  }
  static double drift(double y) { return 8.0 * std::sin(2.0 * 3.14159265358979 * y / 1600.0); }

  DriftingSeam() {
    grid_1 = write("one.grd", [](double x, double y) { return field(x, y); });
    grid_2 = write("two.grd", [](double x, double y) { return field(x, y) - level - drift(y); });
    parameters.report_name = "seam.txt";
    parameters.correction_distance = 40.0F;
    parameters.blend_width = 60.0F;
    parameters.band_margin = 20.0F;
    parameters.lattice = lattice;
    parameters.lattice_x_max = 1200.0;
    parameters.lattice_y_max = 1600.0;
    parameters.output_path = "merged.grd";
  }

  template <typename Field>
  input_grid write(const char* name, Field value) {
    testing::write_grid(name, lattice, [&](std::int32_t column, std::int32_t row) {
      return static_cast<float>(value(lattice.x(column), lattice.y(row)));
    });
    return {name, testing::describe(name)};
  }

  // Why it was not done.
  std::string stitch(std::vector<double> x = {600.0, 600.0, 600.0}) {
    line = {std::move(x), {0.0, 800.0, 1600.0}};
    return GRIDSTITCH(parameters, grid_1, grid_2, line, summary).why;
  }

  testing::TemporaryFolder folder;
  testing::CurrentFolder inside{folder.path()};
  input_grid grid_1, grid_2;
  stitch_parameters parameters;
  stitch_line line;
  stitch_summary summary;
};

TEST_F(DriftingSeam, a_drift_over_many_correction_distances_is_taken_out_along_the_line) {
  ASSERT_EQ(stitch(), "");
  EXPECT_TRUE(summary.corrected);
  EXPECT_NEAR(summary.mismatch.offset, level, 0.1);
  EXPECT_NEAR(summary.mismatch.rms_after, 8.0 / std::sqrt(2.0), 0.1);
  const std::vector<float> correction = read_grid("seam_stitch_grid_smooth.grd");
  const std::vector<float> merged = read_grid("merged.grd");
  double left = 0.0;
  double before = 0.0;
  for (std::int32_t row = 17; row <= 145; ++row) {  // a tenth of the line off either end
    const double wanted = drift(lattice.y(row));
    const std::size_t on_line = testing::cell_index(61, row, lattice.x_count);
    left += std::pow(wanted - static_cast<double>(correction[on_line]), 2);
    before += wanted * wanted;
    // Right of the line stands grid 1 (the line runs north), left of it grid 2 on its level.
    EXPECT_EQ(merged[on_line + 3], read_grid("one.grd")[on_line + 3]);
    const std::size_t left_of_line = on_line - 7;
    EXPECT_NEAR(
        merged[left_of_line],
        read_grid("two.grd")[left_of_line] + summary.mismatch.offset + correction[left_of_line],
        1E-4F);
  }
  EXPECT_LT(std::sqrt(left), 0.25 * std::sqrt(before));
  EXPECT_LT(summary.mismatch.rms_corrected, 0.4 * summary.mismatch.rms_after);
  EXPECT_EQ(folder.names(),
            (names{"merged.grd", "one.grd", "seam_mismatch.dat", "seam_stitch_grid_smooth.grd",
                   "seam_stitch_grid_smooth_trs.log", "two.grd"}));
}

// The fill of the window goes on from every second column and row: a line between them, or one that
// drifts slowly over them, must not be lost to it.
TEST_F(DriftingSeam, is_corrected_wherever_its_line_lies_between_columns_and_rows) {
  for (const double x : {600.0, 610.0}) {
    for (const double half_turn : {0.0, 2.5, 5.0, 15.0, -50.0, 300.0}) {  // of the line, map units
      ASSERT_EQ(stitch({x - half_turn, x, x + half_turn}), "");
      EXPECT_LT(summary.mismatch.rms_corrected, 0.4 * summary.mismatch.rms_after)
          << x << " " << half_turn;
    }
  }
}

// The side through its join misses those columns and rows at either side of it.
TEST_F(DriftingSeam, is_corrected_across_the_join_of_a_closed_line) {
  line = {{600, 650, 750, 950, 600, 330, 530, 600}, {310, 310, 310, 510, 810, 510, 310, 310}};
  ASSERT_EQ(GRIDSTITCH(parameters, grid_1, grid_2, line, summary).why, "");
  EXPECT_LT(summary.mismatch.rms_corrected, 0.4 * summary.mismatch.rms_after);
}

TEST_F(DriftingSeam, grid_1_moves_the_other_way_when_it_is_the_one_to_be_adjusted) {
  parameters.adjusted_grid = 0;
  ASSERT_EQ(stitch(), "");
  const std::vector<float> correction = read_grid("seam_stitch_grid_smooth.grd");
  const std::vector<float> merged = read_grid("merged.grd");
  const std::size_t cell = testing::cell_index(101, 41, lattice.x_count);
  EXPECT_NEAR(merged[cell], read_grid("one.grd")[cell] - summary.mismatch.offset - correction[cell],
              1E-4F);
  const std::size_t far_left = testing::cell_index(54, 41, lattice.x_count);
  EXPECT_EQ(merged[far_left], read_grid("two.grd")[far_left]);
}

TEST_F(DriftingSeam, a_correction_that_cannot_be_made_leaves_nothing_of_itself) {
  for (const auto call : {testing::system_call::open, testing::system_call::write}) {
    for (int nth = 1; nth < 400; nth += 7) {
      testing::FailingSystem system(call, nth, ENOSPC);
      {
        const platform::SystemOverride override(system);
        try {
          (void)stitch();
        } catch (const platform::IoError&) {
          // The stop that the failure asks for.
        }
      }
      if (!system.has_failed()) {
        break;
      }
      for (const std::string& name : folder.names()) {
        EXPECT_FALSE(name.starts_with('~') || name == "merged.grd") << name << " " << nth;
        EXPECT_EQ(name.find("_power"), std::string::npos);
      }
      // Either the whole of the correction is there, or none of it.
      EXPECT_EQ(std::filesystem::exists("seam_stitch_grid_smooth.grd"),
                std::filesystem::exists("seam_stitch_grid_smooth_trs.log"))
          << nth;
      std::filesystem::remove("seam_stitch_grid_smooth.grd");
      std::filesystem::remove("seam_stitch_grid_smooth_trs.log");
    }
    std::filesystem::remove("merged.grd");
  }
}

}  // namespace
}  // namespace velmorankite
