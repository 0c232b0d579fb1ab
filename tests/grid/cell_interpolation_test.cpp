// SPDX-License-Identifier: MIT
#include "grid/cell_interpolation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iterator>
#include <limits>
#include <random>
#include <span>
#include <vector>

#include "grid/dummy.h"
#include "support/grids.h"
#include "support/sampled_grid.h"

namespace velmorankite {
namespace {

using testing::first_difference;
using testing::rough_cells;
using testing::rough_coordinates;
using testing::SampledGrid;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr float nan_cell = std::numeric_limits<float>::quiet_NaN();

struct plain_case {
  Lattice lattice;
  double hole_share;
  std::int32_t sense;
};

// Small, wide, high, with every share of holes; the odd sizes and origins make the offsets round.
const plain_case plain_cases[] = {
    {{10.0, -3.0, 1.0, 1.0, 1, 1}, 0.0, 1},       {{0.1, 0.2, 0.3, 0.7, 1, 6}, 0.0, -2},
    {{1.0E6, 5.0E6, 12.5, 25.0, 9, 1}, 0.1, 1},   {{-7.0, 7.0, 0.1, 0.1, 2, 2}, 0.0, 1},
    {{0.0, 0.0, 1.0, 1.0, 12, 9}, 0.0, 1},        {{0.3, 0.7, 1.1, 0.9, 11, 13}, 0.1, -2},
    {{-1.0E3, 4.0E3, 7.3, 7.3, 30, 20}, 0.03, 1}, {{0.0, 0.0, 0.25, 0.5, 17, 21}, 0.5, -2},
    {{100.0, 100.0, 3.0, 3.0, 300, 7}, 0.001, 1},
};

TEST(CellInterpolation, any_points_in_any_order_have_the_values_of_the_plain_reading) {
  for (std::size_t i = 0; i < std::size(plain_cases); ++i) {
    const plain_case& c = plain_cases[i];
    const SampledGrid grid(c.lattice, rough_cells(c.hole_share, 7), c.sense);
    std::mt19937 generator(11);
    const auto x =
        rough_coordinates(c.lattice.x_min, c.lattice.x_cell, c.lattice.x_count, 500, generator);
    const auto y =
        rough_coordinates(c.lattice.y_min, c.lattice.y_cell, c.lattice.y_count, 500, generator);
    for (const std::int32_t mode : {0, 1, 2, 3}) {
      const std::vector<float> expected = grid.plain_values(x, y, mode);
      for (const bool in_memory : {false, true}) {
        std::vector<float> values(x.size());
        grid.open(in_memory, mode).points(x, y, values);
        EXPECT_EQ(first_difference(expected, values), "") << i << " mode " << mode;
      }
    }
  }
}

// A lattice over the grid's area and beyond, with cells of `ratio` times the grid's, moved by
// `shift` of them.
Lattice over(const Lattice& grid, double ratio, double shift) {
  const double x_cell = grid.x_cell * ratio;
  const double y_cell = grid.y_cell * ratio;
  return {grid.x_min + (shift - 2.0) * x_cell,
          grid.y_min + (shift - 2.0) * y_cell,
          x_cell,
          y_cell,
          static_cast<std::int32_t>(grid.x_count / ratio) + 4,
          static_cast<std::int32_t>(grid.y_count / ratio) + 4};
}

TEST(CellInterpolation, rows_of_any_lattice_have_the_values_of_the_plain_reading) {
  struct example {
    double ratio, shift;
    std::int32_t mode;
  };
  const example examples[] = {{1.0, 0.0, 1},  {1.0, 0.3, 1},  {1.0, 0.005, 1}, {1.0, -0.4, 2},
                              {2.0, 0.0, 1},  {0.5, 0.0, 3},  {1.7, 0.37, 1},  {0.31, 0.2, 1},
                              {0.31, 0.1, 3}, {1.0, -0.5, 0}, {4.3, 0.1, 1}};
  for (std::size_t i = 0; i < std::size(plain_cases); ++i) {
    const plain_case& c = plain_cases[i];
    const SampledGrid grid(c.lattice, rough_cells(c.hole_share, 5), c.sense);
    for (const example& e : examples) {
      const Lattice target = over(c.lattice, e.ratio, e.shift);
      const std::vector<double> x = x_of_columns(target);
      CellInterpolator cells[] = {grid.open(false, e.mode), grid.open(true, e.mode)};
      for (std::int32_t row = 1; row <= target.y_count; ++row) {
        // The highest row has other points than those before it.
        const std::span<const double> points =
            std::span(x).subspan(row == target.y_count ? x.size() / 2 : 0);
        const std::vector<float> expected =
            grid.plain_values({points.begin(), points.end()}, {target.y(row)}, e.mode);
        for (CellInterpolator& either : cells) {
          std::vector<float> values(points.size());
          either.row(points, target.y(row), values);
          EXPECT_EQ(first_difference(expected, values), "") << i << ' ' << e.ratio << ' ' << row;
        }
      }
    }
  }
}

TEST(CellInterpolation, a_quadratic_surface_is_met_between_the_cells) {
  const auto surface = [](double x, double y) { return 3.0 + 2.0 * x - y + 0.5 * x * x + x * y; };
  const SampledGrid grid({0.0, 0.0, 1.0, 1.0, 9, 9}, [&](int column, int row) {
    return static_cast<float>(surface(column - 1, row - 1));
  });
  for (const double x : {1.25, 3.5, 6.99}) {
    for (const double y : {1.02, 4.75, 6.5}) {
      EXPECT_NEAR(grid.at(x, y), surface(x, y), 1.0E-5);
    }
  }
}

// Beyond the outer cells the cubic sees the outer cell three times and then its inner neighbour:
// half a cell out it is a sixteenth of their difference off the outer value.
TEST(CellInterpolation, the_area_reaches_half_a_cell_beyond_the_outer_centres) {
  const SampledGrid grid({10.0, 20.0, 2.0, 2.0, 4, 3}, [](int column, int row) {
    return static_cast<float>(100 * row + column);
  });
  struct example {
    double x, y;
    float value;
  };
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const example examples[] = {
      {9.0, 20.0, 101.0F - 0.0625F},
      {17.0, 24.0, 304.0F + 0.0625F},
      {12.0, 19.0, 102.0F - 6.25F},
      {14.0, 25.0, 303.0F + 6.25F},
      {std::nextafter(9.0, 0.0), 20.0, dummy},
      {std::nextafter(17.0, 99.0), 24.0, dummy},
      {12.0, std::nextafter(19.0, 0.0), dummy},
      {14.0, std::nextafter(25.0, 99.0), dummy},
      {nan, 20.0, dummy},
      {10.0, nan, dummy},
      {1.0E300, 20.0, dummy},
      {10.0, -infinity, dummy},
  };
  for (const example& e : examples) {
    EXPECT_EQ(grid.at(e.x, e.y), e.value) << e.x << ' ' << e.y;
  }
}

TEST(CellInterpolation, an_empty_nearest_cell_empties_the_point_and_no_other_hole_does) {
  for (int hole = 0; hole < 16; ++hole) {
    const SampledGrid grid({0.0, 0.0, 1.0, 1.0, 4, 4}, [&](int column, int row) {
      return 4 * (row - 1) + column - 1 == hole ? nan_cell : 5.0F;
    });
    EXPECT_EQ(grid.at(1.3, 1.6), hole == 9 ? dummy : 5.0F) << hole;
  }
}

}  // namespace
}  // namespace velmorankite
