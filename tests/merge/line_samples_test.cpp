// SPDX-License-Identifier: MIT
#include "merge/line_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace velmorankite {
namespace {

using doubles = std::vector<double>;

// Samples of a line in a window that holds it, or in a narrower one.
struct Walk {
  Walk(const stitch_line& line, double step, double limit = 1e9) {
    window.lattice = {-limit, -limit, step, step, 1, 1};
    window.x_max = window.y_max = limit;
    EXPECT_EQ(measure_segments(line, step, segments, steps).why, "");
    fault = sample_line(segments, steps, window, x, y).why;
  }
  working_window window;
  std::vector<line_segment> segments;
  std::int32_t steps = 0;
  doubles x, y;
  std::string fault;
};

TEST(LineSamples, stand_one_step_apart_round_every_corner) {
  // 2.5 east, 2 north, 2.5 west: the step that passes a corner goes on behind it.
  const Walk walk({{0, 2.5, 2.5, 0}, {0, 0, 2, 2}}, 1.0);
  EXPECT_EQ(walk.x, (doubles{0, 1, 2, 2.5, 2.5, 2, 1, 0}));
  EXPECT_EQ(walk.y, (doubles{0, 0, 0, 0.5, 1.5, 2, 2, 2}));
  // They reach the end and the corner that they fall on, here with a point in it.
  const Walk on_corner({{0, 2, 2, 2}, {0, 0, 0, 2}}, 1.0);
  EXPECT_EQ(on_corner.x, (doubles{0, 1, 2, 2, 2}));
  EXPECT_EQ(on_corner.y, (doubles{0, 0, 0, 1, 2}));
}

TEST(LineSamples, outside_the_window_are_dropped_and_those_on_its_limits_kept) {
  const Walk walk({{-4, 4}, {0, 0}}, 1.0, 2.0);
  EXPECT_EQ(walk.x, (doubles{-2, -1, 0, 1, 2}));
  EXPECT_TRUE(Walk({{4, 9}, {0, 0}}, 1.0, 2.0).x.empty());
}

TEST(LineSamples, follow_the_running_distance_in_single_precision) {
  // Each step is rounded, and so are the ends of the segments from one to the next.
  stitch_line line;
  for (int i = 0; i <= 100; ++i) {
    line.x.push_back(30.1 * i);
    line.y.push_back(0.0);
  }
  const Walk walk(line, 0.7);
  float s = 0.0F;
  float start = 0.0F;
  std::size_t k = 0;
  for (std::size_t i = 1; i < walk.x.size(); ++i) {
    s = static_cast<float>(static_cast<double>(s) + 0.7);
    while (s > start + static_cast<float>(walk.segments[k].length)) {
      start += static_cast<float>(walk.segments[k++].length);
    }
    EXPECT_EQ(walk.x[i], line.x[k] + walk.segments[k].ux * static_cast<double>(s - start)) << i;
  }
  EXPECT_EQ(walk.x.size(), 4301U);
  EXPECT_NE(walk.x.back(), 3010.0);  // the rounding shows
}

TEST(LineSamples, of_a_line_too_long_for_its_steps_are_refused) {
  const Walk walk({{0, 3e7}, {0, 0}}, 1.0, 100.0);
  EXPECT_EQ(walk.fault,
            "the stitch line is too long for its steps: 16777216 along it a step of one X cell "
            "size (1) no longer moves in single precision");
}

}  // namespace
}  // namespace velmorankite
