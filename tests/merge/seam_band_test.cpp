// SPDX-License-Identifier: MIT
#include "merge/seam_band.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "grid/dummy.h"

namespace velmorankite {
namespace {

// Joins on 61 x 61 cells of 1 from (0, 0) with a blend of 3 and a band of 5.
stitch_parameters parameters() {
  stitch_parameters p;
  p.blend_width = 3.0F;
  p.band_margin = 2.0F;
  p.lattice = {0.0, 0.0, 1.0, 1.0, 61, 61};
  p.lattice_x_max = 60.0;
  p.lattice_y_max = 60.0;
  return p;
}

TEST(SeamBand, brings_window_samples_and_weights_to_one_lattice) {
  stitch_line line{{20, 40}, {30, 30}};
  seam_band band;
  ASSERT_EQ(build_seam_band(parameters(), {}, {}, line, band).why, "");
  EXPECT_FALSE(band.closed);
  EXPECT_EQ(band.repeated_count, 0U);
  EXPECT_EQ(band.window.first_column, 16);
  EXPECT_EQ(band.window.first_row, 26);
  EXPECT_EQ(band.sample_x.size(), 21U);
  EXPECT_EQ(band.sample_y, std::vector<double>(21, 30.0));
  ASSERT_EQ(band.weights.size(), 31U * 11U);
  // Row 6 of the window is the line, row 7 the first of the blend.
  EXPECT_EQ(band.weights[5 * 31 + 4], dummy);
  EXPECT_EQ(band.weights[5 * 31 + 5], 1.0F);
  EXPECT_EQ(band.weights[4 * 31 + 5], weight_grid_1);
  EXPECT_EQ(band.weights[10 * 31 + 25], weight_grid_2);
}

TEST(SeamBand, takes_the_limits_of_the_grid_that_is_adjusted) {
  grid_description wide;
  wide.reals.x_max = wide.reals.y_max = 60.0;
  grid_description narrow;
  narrow.reals.x_min = narrow.reals.x_max = narrow.reals.y_min = narrow.reals.y_max = 30.0;
  stitch_parameters p = parameters();
  p.correction_distance = 5.0F;
  for (const std::int32_t adjusted : {0, 1}) {
    p.adjusted_grid = adjusted;
    stitch_line line{{20, 40}, {30, 30}};
    seam_band band;
    ASSERT_EQ(build_seam_band(p, wide, narrow, line, band).why, "");
    EXPECT_EQ(band.window.lattice.x_count, adjusted == 0 ? 61 : 31);
  }
}

TEST(SeamBand, of_a_closed_line_tells_so_and_runs_on_to_the_second_vertex) {
  stitch_line line{{20, 40, 40, 20, 20.5}, {20, 20, 40, 40, 20.5}};
  seam_band band;
  ASSERT_EQ(build_seam_band(parameters(), {}, {}, line, band).why, "");
  EXPECT_TRUE(band.closed);
  EXPECT_EQ(line.x, (std::vector<double>{20, 40, 40, 20, 20.5, 40}));
  EXPECT_EQ(line.y, (std::vector<double>{20, 20, 40, 40, 20.5, 20}));
  EXPECT_GT(band.sample_x.size(), 98U);
  EXPECT_EQ(band.repeated_count, 20U);  // at steps of 1 along the side from 20 to 40
}

TEST(SeamBand, that_cannot_be_built_leaves_the_sentence_of_the_stage_that_stopped) {
  grid_description vast;
  vast.reals.x_max = vast.reals.y_max = 1e9;
  const auto why = [&](const stitch_parameters& p, stitch_line line) {
    seam_band band;
    const Outcome outcome = build_seam_band(p, {}, vast, line, band);
    EXPECT_TRUE(outcome.failed());
    return outcome.why.substr(0, 34);
  };
  stitch_parameters p = parameters();
  EXPECT_EQ(why(p, {{30, 31, 32.5}, {30, 30, 30}}), "the stitch line is 2.5 long, at le");
  EXPECT_EQ(why(p, {{-50, -40}, {30, 30}}), "line and output lattice do not mee");
  p.lattice_x_max = p.lattice_y_max = 1e9;
  EXPECT_EQ(why(p, {{-3e7, 10}, {0, 0}}), "the stitch line is too long for it");
  p.correction_distance = 5.0F;
  EXPECT_EQ(why(p, {{0, 10}, {0, 10}}), "the working window of 1000000001 b");
}

}  // namespace
}  // namespace velmorankite
