// SPDX-License-Identifier: MIT
#include "merge/sieve/line_segments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <vector>

namespace velmorankite {
namespace {

using doubles = std::vector<double>;

std::vector<bend> bends_of(const stitch_line& line) {
  std::vector<line_segment> segments;
  std::int32_t steps = 0;
  EXPECT_EQ(measure_segments(line, 0.001, segments, steps).why, "");
  std::vector<bend> bends;
  std::ranges::transform(segments, std::back_inserter(bends), &line_segment::at_start);
  return bends;
}

TEST(LineSegments, bend_left_or_straight_on_and_right) {
  using enum bend;
  // East, north (left), north (straight), east (right), back west, on west, a point, south.
  const stitch_line line{{0, 1, 1, 1, 2, 1, 0, 0, 0}, {0, 0, 1, 2, 2, 2, 2, 2, 1}};
  // A turn back on itself crosses by 0; behind a point without a direction the bend is right.
  EXPECT_EQ(bends_of(line), (std::vector<bend>{none, left, left, right, left, left, left, right}));
}

TEST(LineSegments, have_lengths_in_single_precision_and_directions_by_these) {
  std::vector<line_segment> segments;
  std::int32_t steps = 0;
  ASSERT_EQ(
      measure_segments({{10, 10.1, 10.1, 10.1}, {0, 0.1, 0.1, 3.1}}, 1.0, segments, steps).why, "");
  ASSERT_EQ(segments.size(), 3U);
  const double dx = 10.1 - 10.0;
  const double length = static_cast<double>(static_cast<float>(std::sqrt(dx * dx + 0.1 * 0.1)));
  EXPECT_EQ(segments[0].length, length);
  EXPECT_EQ(segments[0].ux, dx / length);
  EXPECT_EQ(segments[0].uy, 0.1 / length);
  EXPECT_EQ(segments[1].length, 0.0);
  EXPECT_TRUE(std::isnan(segments[1].ux));
  EXPECT_EQ(segments[2].x, 10.1);
  EXPECT_EQ(segments[2].length, 3.0);
  EXPECT_EQ(steps, 4);  // 3.14 / 1 + 1, cut
}

TEST(LineSegments, of_a_line_below_three_steps_or_beyond_counting_are_refused) {
  std::vector<line_segment> segments;
  std::int32_t steps = 0;
  const auto measure = [&](double length, double step) {
    return measure_segments({{0.0, length / 2, length}, {0.0, 0.0, 0.0}}, step, segments, steps)
        .why;
  };
  EXPECT_EQ(measure(75.0, 25.0), "");
  EXPECT_EQ(steps, 4);
  EXPECT_EQ(measure(74.5, 25.0),
            "the stitch line is 74.5 long, at least three X cell sizes (75) are needed");
  EXPECT_EQ(measure(1e10, 1.0),
            "the stitch line is 1e+10 long, which is more X cell sizes of 1 than can be sampled");
  const std::string too_long =
      "the stitch line is longer than single precision can hold (3.4028234663852886e+38)";
  EXPECT_EQ(measure(1e39, 1e30), too_long);
  EXPECT_EQ(measure(1e308, 1e30), too_long);
}

TEST(ClosedLine, gets_its_second_vertex_again_where_the_gap_is_below_the_distance) {
  struct example {
    double last_x;
    bool closed;
  };
  for (const example& e : {example{0.99, true}, example{1.0, false}, example{0.0, true}}) {
    stitch_line line{{0, 5, 5, e.last_x}, {0, 0, 5, 0}};
    EXPECT_EQ(close_line(line, 1.0), e.closed);
    EXPECT_EQ(line.x, e.closed ? (doubles{0, 5, 5, e.last_x, 5}) : (doubles{0, 5, 5, e.last_x}));
    EXPECT_EQ(line.y, e.closed ? (doubles{0, 0, 5, 0, 0}) : (doubles{0, 0, 5, 0}));
  }
}

}  // namespace
}  // namespace velmorankite
