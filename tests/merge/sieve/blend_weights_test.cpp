// SPDX-License-Identifier: MIT
#include "merge/sieve/blend_weights.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <numbers>
#include <random>
#include <vector>

#include "grid/dummy.h"
#include "support/grids.h"

namespace velmorankite {
namespace {

std::vector<line_segment> segments_of(const stitch_line& line) {
  std::vector<line_segment> segments;
  std::int32_t steps = 0;
  EXPECT_EQ(measure_segments(line, 1e-4, segments, steps).why, "");
  return segments;
}

// The weights of a window for a line, by their column and row.
struct Band {
  Band(const stitch_line& line, const Lattice& lattice, float blend_width, float reach)
      : window(lattice), weights(static_cast<std::size_t>(lattice.cell_count()), 7.0F) {
    fill_blend_weights(segments_of(line), window, blend_width, reach, weights);
  }
  [[nodiscard]] float at(std::int32_t column, std::int32_t row) const {
    return weights[testing::cell_index(column, row, window.x_count)];
  }
  // The weight of the cell at a position.
  [[nodiscard]] float over(double x, double y) const {
    return at(static_cast<std::int32_t>(std::lround((x - window.x_min) / window.x_cell)) + 1,
              static_cast<std::int32_t>(std::lround((y - window.y_min) / window.y_cell)) + 1);
  }
  Lattice window;
  std::vector<float> weights;
};

// 41 x 41 cells of 1 round the origin.
constexpr Lattice around_origin{-20.0, -20.0, 1.0, 1.0, 41, 41};

TEST(BlendWeights, of_a_line_to_the_east_blend_to_the_north_and_are_grid_1_to_the_south) {
  const Band band({{-10, 10}, {0, 0}}, around_origin, 4.0F, 6.0F);
  const std::pair<double, float> column[] = {
      {7, dummy},
      {6, weight_grid_2},
      {5, weight_grid_2},
      {4, 0.0F},
      {2, 0.4375F},
      {0, 1.0F},
      {-1, weight_grid_1},
      {-6, weight_grid_1},
      {-7, dummy},
      {3, 0.0625F * 1.9375F},  // u (2 - u) with u = (1 - 3/4)^2
      {1, 0.5625F * 1.4375F},
  };
  for (const auto& [y, weight] : column) {
    // The ends of the line end the band square.
    for (const double x : {-10.0, 0.0, 10.0}) {
      EXPECT_EQ(band.over(x, y), weight) << x << " " << y;
    }
    EXPECT_EQ(band.over(-11, y), dummy) << y;
    EXPECT_EQ(band.over(11, y), dummy) << y;
  }
}

TEST(BlendWeights, close_a_bend_with_a_circular_sector_and_keep_to_the_nearest_arm_inside_it) {
  // From the south to the origin, then east: a right bend, its outer side is the north-west, its
  // inner side the south-east, right of both arms.
  const Band right({{0, 0, 15}, {-15, 0, 0}}, around_origin, 8.0F, 10.0F);
  const Band left({{0, 0, -15}, {-15, 0, 0}}, around_origin, 8.0F, 10.0F);
  for (int x = -12; x < 0; ++x) {
    for (int y = 1; y <= 12; ++y) {
      const double distance = std::hypot(x, y);
      const float weight = right.over(x, y);
      if (distance > 10.0) {
        EXPECT_EQ(weight, dummy) << x << " " << y;
      } else if (distance > 8.0) {
        EXPECT_EQ(weight, weight_grid_2) << x << " " << y;
      } else {
        const double u = (1.0 - distance / 8.0) * (1.0 - distance / 8.0);
        EXPECT_NEAR(weight, u * (2.0 - u), 1e-6) << x << " " << y;
      }
      // Its mirror image is a left bend, with the outer side all on the right of the line.
      EXPECT_EQ(left.over(-x, y), distance > 10.0 ? dummy : weight_grid_1) << x << " " << y;
      EXPECT_EQ(right.over(-x, -y), std::min(-x, y) > 10 ? dummy : weight_grid_1) << x << " " << y;
    }
  }
}

TEST(BlendWeights, between_two_arms_as_near_follow_the_arm_that_comes_first) {
  // East along y = -3, round the north and back, east along y = 3: y = 0 lies left of the first
  // arm and right of the last, 3 from both. Run the other way, it is left of what was the last.
  const Band there({{-18, 18, 18, -18, -18, 10}, {-3, -3, 19, 19, 3, 3}}, around_origin, 2, 3);
  const Band back({{10, -18, -18, 18, 18, -18}, {3, 3, 19, 19, -3, -3}}, around_origin, 2, 3);
  for (int x = -10; x <= 10; ++x) {
    EXPECT_EQ(there.over(x, -1), 0.0F) << x;
    EXPECT_EQ(there.over(x, 0), weight_grid_2) << x;
    EXPECT_EQ(there.over(x, 1), weight_grid_1) << x;
    EXPECT_EQ(back.over(x, -1), weight_grid_1) << x;
    EXPECT_EQ(back.over(x, 0), weight_grid_2) << x;
  }
}

TEST(BlendWeights, of_a_closed_line_have_no_gap_at_the_join) {
  // A square run anticlockwise: grid 2 inside; the join at the lower left corner.
  stitch_line square{{-8, 8, 8, -8, -8}, {-8, -8, 8, 8, -8}};
  const Band open(square, around_origin, 3.0F, 5.0F);
  EXPECT_EQ(open.over(-10, -10), dummy);
  ASSERT_TRUE(close_line(square, 1.0));
  const Band closed(square, around_origin, 3.0F, 5.0F);
  EXPECT_EQ(closed.over(-10, -10), weight_grid_1);
  EXPECT_EQ(closed.over(10, 10), weight_grid_1);
  EXPECT_EQ(closed.over(0, 0), dummy);
  EXPECT_EQ(closed.over(0, -4), weight_grid_2);
  EXPECT_EQ(closed.over(-8, -8), 1.0F);
}

// The reading that the fast one must equal to the bit: every cell against every segment.
std::vector<float> plain_weights(const std::vector<line_segment>& segments, const Lattice& window,
                                 float blend_width, float reach) {
  const float limit = reach / blend_width;
  std::vector<float> weights;
  for (std::int32_t row = 1; row <= window.y_count; ++row) {
    for (std::int32_t column = 1; column <= window.x_count; ++column) {
      float v = dummy;
      for (std::size_t k = 0; k < segments.size(); ++k) {
        const line_segment& s = segments[k];
        const double px = window.x(column) - s.x;
        const double py = window.y(row) - s.y;
        const auto t = static_cast<float>(s.ux * px + s.uy * py);
        const auto d = static_cast<float>((px * s.uy - s.ux * py) / double{blend_width});
        if (std::fabs(d) <= limit && t >= 0.0F && t <= static_cast<float>(s.length)) {
          if (v == dummy || std::fabs(d) < std::fabs(v)) v = d;
        }
        if (k == 0) continue;
        const auto e = static_cast<float>(std::sqrt(px * px + py * py) / double{blend_width});
        if (e <= limit) {
          if (s.at_start == bend::right && d < 0.1F && (v == dummy || e < std::fabs(v))) v = -e;
          if (s.at_start == bend::left && d > -0.1F && (v == dummy || e < std::fabs(v))) v = e;
        }
      }
      const float u = (v + 1.0F) * (v + 1.0F);
      weights.push_back(v == dummy  ? dummy
                        : v > 0.0F  ? weight_grid_1
                        : v < -1.0F ? weight_grid_2
                                    : u * (2.0F - u));
    }
  }
  return weights;
}

// Random lines of one kind each.
class LineMaker {
 public:
  explicit LineMaker(unsigned seed) : random_(seed) {}

  double uniform(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }
  // A walk whose direction turns by up to `turn` radians and whose steps lie between two sizes.
  stitch_line walk(int count, double turn, double shortest_step, double longest_step) {
    stitch_line line{{uniform(-10, 10)}, {uniform(-10, 10)}};
    double direction = uniform(0, 2 * std::numbers::pi);
    for (int i = 1; i < count; ++i) {
      const double step = uniform(shortest_step, longest_step);
      line.x.push_back(line.x.back() + step * std::cos(direction));
      line.y.push_back(line.y.back() + step * std::sin(direction));
      direction += uniform(-turn, turn);
    }
    return line;
  }
  // Vertices on the lattice, some twice: ties, exact right angles, reversals and points.
  stitch_line on_lattice(int count, int size) {
    stitch_line line;
    for (int i = 0; i < count; ++i) {
      line.x.push_back(std::floor(uniform(-size, size)));
      line.y.push_back(std::floor(uniform(-size, size)));
      if (uniform(0, 1) < 0.15) {
        line.x.push_back(line.x.back());
        line.y.push_back(line.y.back());
      }
    }
    return line;
  }
  // There and back along nearly the same way.
  stitch_line hairpin(int count) {
    stitch_line line = walk(count, 0.2, 0.5, 2.0);
    for (int i = count - 2; i >= 0; --i) {
      const auto at = static_cast<std::size_t>(i);
      line.x.push_back(line.x[at] + uniform(-1e-7, 1e-7));
      line.y.push_back(line.y[at]);
    }
    return line;
  }

 private:
  std::mt19937 random_;
};

// `line` where and as large as `window` lies, whatever its cells.
stitch_line placed(stitch_line line, const Lattice& window) {
  for (std::size_t i = 0; i < line.x.size(); ++i) {
    line.x[i] = window.x(window.x_count / 2) + line.x[i] * window.x_cell;
    line.y[i] = window.y(window.y_count / 2) + line.y[i] * window.y_cell;
  }
  return line;
}

TEST(BlendWeights, pruned_are_those_of_the_plain_reading_to_the_bit) {
  struct line_kind {
    const char* name;
    stitch_line (*line)(LineMaker& make);
  };
  const line_kind kinds[] = {
      {"smooth", [](LineMaker& make) { return make.walk(40, 0.3, 0.3, 4.0); }},
      {"jagged", [](LineMaker& make) { return make.walk(60, 3.1, 0.3, 4.0); }},
      {"minute", [](LineMaker& make) { return make.walk(300, 2.0, 0.0, 0.1); }},
      {"long", [](LineMaker& make) { return make.walk(6, 2.0, 5.0, 200.0); }},
      {"lattice", [](LineMaker& make) { return make.on_lattice(20, 15); }},
      {"hairpin", [](LineMaker& make) { return make.hairpin(15); }},
      {"far", [](LineMaker& make) { return make.on_lattice(4, 300); }},
  };
  LineMaker make(20240229);
  const Lattice windows[] = {
      {-20.0, -20.0, 1.0, 1.0, 41, 41},
      {-180.0, 61.3, 1.0 / 12, 1.0 / 60, 53, 37},  // cells that are not square nor exact
      {430012.5, 6200000.1, 12.7, 25.4, 30, 47},
      {1e14, -1e14, 0.5, 0.5, 20, 20},  // hardly more than the rounding of the coordinates
  };
  for (int round = 0; round < 24 * static_cast<int>(std::size(kinds)); ++round) {
    const line_kind& kind = kinds[static_cast<std::size_t>(round) % std::size(kinds)];
    for (const Lattice& window : windows) {
      stitch_line line = placed(kind.line(make), window);
      if (make.uniform(0, 1) < 0.5) {
        line.x.push_back(line.x.front());
        line.y.push_back(line.y.front());
        (void)close_line(line, window.x_cell);
      }
      const auto cell = static_cast<float>(window.x_cell);
      const float blend = cell * static_cast<float>(make.uniform(0.3, 9.0));
      const float reach = blend * static_cast<float>(make.uniform(0.2, 3.0));
      const std::vector<line_segment> segments = segments_of(line);
      std::vector<float> weights(static_cast<std::size_t>(window.cell_count()));
      fill_blend_weights(segments, window, blend, reach, weights);
      ASSERT_EQ(testing::first_difference(plain_weights(segments, window, blend, reach), weights),
                "")
          << kind.name << " " << round << " " << window.x_cell << " " << blend << " " << reach;
    }
  }
}

}  // namespace
}  // namespace velmorankite
