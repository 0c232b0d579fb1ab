// SPDX-License-Identifier: MIT
#include "merge/merge_rule.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "grid/dummy.h"
#include "merge/seam_band.h"
#include "support/grids.h"

namespace velmorankite {
namespace {

constexpr float none = dummy;
constexpr float off_band = dummy;

// Grid 1 is 100, filled 101; grid 2 is 50, filled 51; offset 10, correction 3.
TEST(MergeRule, each_case_takes_its_grid_and_moves_the_adjusted_one) {
  struct example {
    const char* what;
    merge_cell cell;
    float grid_1_moved;
    float grid_2_moved;
  };
  const example examples[] = {
      {"no data in both", {none, none, 3, true, 0.5F, 101, 51}, none, none},
      {"no data in both, outside", {none, none, 3, false, 0, 0, 0}, none, none},
      {"outside, both", {100, 50, 3, false, 0, 0, 0}, 100, 100},
      {"outside, grid 2 alone", {none, 50, 3, false, 0, 0, 0}, 50, 63},
      {"off the band, both", {100, 50, 3, true, off_band, 101, 51}, 87, 100},
      {"off the band, grid 2 alone", {none, 50, 3, true, off_band, 101, 51}, 50, 63},
      {"on the line", {100, 50, 3, true, 1.0F, 101, 51}, 88, 101},
      {"blend", {100, 50, 3, true, 0.25F, 101, 51}, 60.25F, 73.25F},
      {"blend reaches into a hole", {none, 50, 3, true, 0.25F, 101, 51}, 60.25F, 73.25F},
      {"end of the blend", {100, 50, 3, true, 0.0F, 101, 51}, 51, 64},
      {"left of the blend", {100, none, 3, true, weight_grid_2, 101, 51}, 51, 64},
      {"right of the line", {100, 50, 3, true, weight_grid_1, 101, 51}, 87, 100},
      {"right of the line, grid 2 alone", {none, 50, 3, true, weight_grid_1, 101, 51}, none, none},
      {"not filled, left of the blend", {100, 50, 3, true, weight_grid_2, none, 51}, none, none},
      {"not filled, blend", {100, 50, 3, true, 0.5F, 101, none}, 87, 100},
      {"not filled, right", {100, 50, 3, true, weight_grid_1, 101, none}, 87, 100},
      {"not filled, right, grid 2 alone", {none, 50, 3, true, weight_grid_1, none, 51}, none, none},
      {"not filled, blend, grid 2 alone", {none, 50, 3, true, 0.5F, none, 51}, 50, 63},
      {"not filled, left, grid 2 alone", {none, 50, 3, true, weight_grid_2, none, 51}, 50, 63},
      {"a correction without a value is 0", {100, 50, none, true, off_band, 1, 1}, 90, 100},
      {"the same for grid 2", {none, 50, none, false, 0, 0, 0}, 50, 60},
  };
  for (const example& e : examples) {
    EXPECT_EQ(merged_value(e.cell, {0, 10.0F}), e.grid_1_moved) << e.what;
    EXPECT_EQ(merged_value(e.cell, {1, 10.0F}), e.grid_2_moved) << e.what;
  }
}

TEST(MergeRule, sums_run_from_left_to_right_in_single_precision) {
  // 2^24 is the last float that counts by ones: adding 1 twice is lost, adding 2 is not.
  const float v = 16777216.0F;
  const merge_cell two{none, v, 1.0F, false, 0, 0, 0};
  EXPECT_EQ(merged_value(two, {1, 1.0F}), v);
  const merge_cell one{-v, none, 1.0F, true, off_band, 0, 0};
  EXPECT_EQ(merged_value(one, {0, 1.0F}), -v);
}

// Every combination of some values of each kind, in stretches that also end within a vector.
TEST(MergeRule, runs_have_the_bits_of_the_plain_rule) {
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  constexpr float infinity = std::numeric_limits<float>::infinity();
  const float values[] = {0.1F, -0.0F, -1.0E31F, nan, infinity, -infinity, dummy};
  const float weights[] = {dummy, weight_grid_1, weight_grid_2, 0.0F, -0.0F, 0.3F, 1.0F};
  const float filled[] = {7.7F, dummy, nan};
  const float corrections[] = {0.0F, 0.3F, dummy, nan};
  std::vector<float> grid_1, grid_2, correction, weight, filled_1, filled_2;
  for (std::size_t i = 0; i < std::size_t{3} * 4116 + 5; ++i) {
    grid_1.push_back(values[i % 7]);
    grid_2.push_back(values[i / 7 % 7]);
    correction.push_back(corrections[i / 49 % 4]);
    weight.push_back(weights[i / 196 % 7]);
    filled_1.push_back(filled[i / 1372 % 3]);
    filled_2.push_back(filled[i / 4116 % 3]);
  }
  for (const levelling level : {levelling{0, 0.7F}, levelling{1, 0.7F}, levelling{1, -0.0F}}) {
    for (const bool in_window : {true, false}) {
      std::vector<float> out = grid_1;
      std::vector<float> expected;
      std::int64_t expected_blended = 0;
      for (std::size_t i = 0; i < out.size(); ++i) {
        const bool blend = is_valid(filled_1[i]) && is_valid(filled_2[i]) && weight[i] >= 0 &&
                           (is_valid(grid_1[i]) || is_valid(grid_2[i]));
        expected_blended += in_window && blend ? 1 : 0;
        expected.push_back(merged_value(
            {grid_1[i], grid_2[i], correction[i], in_window, weight[i], filled_1[i], filled_2[i]},
            level));
      }
      std::int64_t blended = 0;
      if (in_window) {
        blended = merge_inside({out, grid_2, correction}, {weight, filled_1, filled_2}, level);
      } else {
        merge_outside({out, grid_2, correction}, level);
      }
      EXPECT_EQ(testing::first_difference(expected, out), "");
      EXPECT_EQ(blended, expected_blended);
    }
  }
}

}  // namespace
}  // namespace velmorankite
