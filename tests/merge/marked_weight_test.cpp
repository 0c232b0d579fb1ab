// SPDX-License-Identifier: MIT
#include "merge/marked_weight.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "grid/dummy.h"
#include "merge/seam_band.h"
#include "support/grids.h"

namespace velmorankite {
namespace {

TEST(MarkedWeights, give_back_every_weight_and_every_hole) {
  const float smallest_share = 7.105427e-15F;  // of the blend curve, one step from its end
  const float kinds[] = {dummy, weight_grid_1, weight_grid_2, 0.0F, smallest_share, 0.4375F, 1.0F};
  std::vector<float> weights;
  std::vector<float> grid_1;
  std::vector<float> grid_2;
  for (const float w : kinds) {
    for (const float a : {7.0F, -0.0F, dummy}) {
      for (const float b : {-3.0F, std::numeric_limits<float>::quiet_NaN(), -1.0E30F}) {
        weights.push_back(w);
        grid_1.push_back(a);
        grid_2.push_back(b);
      }
    }
  }
  std::vector<float> marked = weights;
  // Of the four shares, two values of grid 1 and one of grid 2 are data.
  EXPECT_EQ(mark_weights(grid_1, grid_2, marked), 4 * 2 * 1);

  std::vector<float> filled_1 = grid_1;
  std::vector<float> filled_2 = grid_2;
  std::vector<float> holes_1 = grid_1;
  std::vector<float> holes_2 = grid_2;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    holes_1[i] = is_valid(grid_1[i]) ? grid_1[i] : dummy;
    holes_2[i] = is_valid(grid_2[i]) ? grid_2[i] : dummy;
    filled_1[i] = is_valid(grid_1[i]) ? grid_1[i] : 99.0F;
    filled_2[i] = is_valid(grid_2[i]) ? grid_2[i] : 98.0F;
  }
  std::vector<float> plain(weights.size());
  unmark_weights(marked, filled_1, filled_2, grid_1, grid_2, plain);
  EXPECT_EQ(testing::first_difference(weights, plain), "");
  EXPECT_EQ(testing::first_difference(holes_1, grid_1), "");
  EXPECT_EQ(testing::first_difference(holes_2, grid_2), "");
}

}  // namespace
}  // namespace velmorankite
