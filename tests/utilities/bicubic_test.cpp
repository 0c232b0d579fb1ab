// SPDX-License-Identifier: MIT
#include "utilities/bicubic.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
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

constexpr Lattice lattice{100.0, -50.0, 2.5, 4.0, 9, 8};

// A polynomial of the second degree along each axis, which the cubic meets between four cells.
double biquadratic(double x, double y) {
  const double s = (x - 110.0) / 10.0;
  const double t = (y + 36.0) / 16.0;
  return (1.0 + s - 2.0 * s * s) * (2.0 - t + t * t);
}

struct form {
  const char* name;
  std::vector<float> (*values)(const SampledGrid&, const std::vector<double>&,
                               const std::vector<double>&);
};

const grid_description& of(const SampledGrid& grid) {
  return grid.description();
}

const form forms[] = {
    {"GRID",
     [](const auto& grid, const auto& x, const auto& y) {
       std::vector<float> v(x.size());
       const auto n = static_cast<std::int32_t>(x.size());
       EXPECT_EQ(BICUBIC_GRID_INTERPOLATION(grid.stored(), of(grid), of(grid).ints.x_count,
                                            of(grid).ints.y_count, n, x, y, v),
                 success);
       return v;
     }},
    {"GRID in double",
     [](const auto& grid, const auto& x, const auto& y) {
       std::vector<float> v(x.size());
       const auto n = static_cast<std::int32_t>(x.size());
       EXPECT_EQ(BICUBIC_GRID_INTERPOLATIOND(grid.stored(), of(grid), n, x, y, v), success);
       return v;
     }},
    {"GEO",
     [](const auto& grid, const auto& x, const auto& y) {
       std::vector<float> v(x.size());
       const auto n = static_cast<std::int32_t>(x.size());
       EXPECT_EQ(BICUBIC_GEO_INTERPOLATION(1, "memory", of(grid), of(grid).ints.x_count,
                                           of(grid).ints.y_count, grid.stored(), n, x, y, v),
                 success);
       return v;
     }},
    {"GEO from a file",
     [](const auto& grid, const auto& x, const auto& y) {
       std::vector<float> v(x.size());
       const auto n = static_cast<std::int32_t>(x.size());
       EXPECT_EQ(
           BICUBIC_GEO_INTERPOLATION(0, grid.path().string() + "  ", of(grid),
                                     of(grid).ints.x_count, of(grid).ints.y_count, {}, n, x, y, v),
           success);
       return v;
     }},
};

TEST(Bicubic, a_quadratic_surface_is_met_where_four_cells_lie_round_a_point) {
  for (const std::int32_t sense : {1, -2}) {
    const SampledGrid grid(
        lattice,
        [](std::int32_t column, std::int32_t row) {
          return static_cast<float>(biquadratic(lattice.x(column), lattice.y(row)));
        },
        sense);
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 88; ++i) {
      x.push_back(lattice.x(3) + 0.9 * (i % 11));
      y.push_back(lattice.y(3) + 1.49 * (i / 11));  // NOLINT(bugprone-integer-division): a row
    }
    for (const form& f : forms) {
      const std::vector<float> values = f.values(grid, x, y);
      for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_NEAR(values[i], biquadratic(x[i], y[i]), 4.0E-6) << f.name << ' ' << x[i];
      }
    }
  }
}

// One row of values that rise by 10, the same in every row, with holes in some places.
TEST(Bicubic, holes_and_edges_are_patched_row_by_row) {
  struct example {
    std::vector<std::pair<int, int>> holes;  // column, row
    double x;                                // on the row 4, in cells from the first column
    float grid_value, geo_value;
  };
  const example examples[] = {
      {{}, 3.25, 32.5F, 32.5F},
      {{{4, 4}}, 3.25, dummy, 24.296875F},  // the base cell of the one, p(1) of the other
      {{{3, 3}}, 3.25, 32.5F, dummy},       // and the reverse
      {{{3, 4}}, 3.25, 31.796875F, 32.5F},  // p(-1) takes p(0), and p(0) the base cell
      {{{5, 4}, {6, 4}}, 3.25, 30.703125F, 30.546875F},  // p(2) takes p(1), which takes p(0)
      {{}, 8.5, 80.625F, 80.625F},
      {{}, -0.5, 0.625F, 0.625F},
      {{{1, 4}}, -0.3, dummy, -0.465F},
      {{}, 8.51, dummy, dummy},
  };
  for (const example& e : examples) {
    const SampledGrid grid(lattice, [&e](int column, int row) {
      const bool hole = std::ranges::find(e.holes, std::pair(column, row)) != e.holes.end();
      return hole ? dummy : 10.0F * static_cast<float>(column - 1);
    });
    const std::vector<double> x = {lattice.x_min + e.x * lattice.x_cell};
    const std::vector<double> y = {lattice.y(4)};
    EXPECT_NEAR(forms[0].values(grid, x, y)[0], e.grid_value, 1.0E-4) << e.x;
    EXPECT_NEAR(forms[2].values(grid, x, y)[0], e.geo_value, 1.0E-4) << e.x;
  }
}

TEST(Bicubic, a_file_gives_the_bits_of_memory_and_a_run_those_of_its_points) {
  for (const std::int32_t sense : {1, -2}) {
    const SampledGrid grid({0.3, 0.7, 1.1, 0.9, 60, 13}, rough_cells(0.04, 9), sense);
    std::mt19937 generator(4);
    std::vector<double> x = rough_coordinates(0.3, 1.1, 60, 500, generator);
    std::vector<double> y = rough_coordinates(0.7, 0.9, 13, 500, generator);
    for (int i = 0; i < 700; ++i) {
      x.push_back(0.5 + 1.1 * (i % 60));
      y.push_back(0.9 + 0.9 * (i / 60));  // NOLINT(bugprone-integer-division): a row
    }
    std::vector<std::vector<float>> of_form;
    for (const form& f : forms) {
      of_form.push_back(f.values(grid, x, y));
      std::vector<float> one_by_one;
      for (std::size_t i = 0; i < x.size(); ++i) {
        one_by_one.push_back(f.values(grid, {x[i]}, {y[i]})[0]);
      }
      EXPECT_EQ(first_difference(one_by_one, of_form.back()), "") << f.name;
    }
    EXPECT_EQ(first_difference(of_form[2], of_form[3]), "") << sense;
  }
}

TEST(Bicubic, calls_without_a_name_a_count_or_points) {
  const SampledGrid grid(lattice, [](auto, auto) { return 1.0F; });
  const std::vector<double> at = {110.0};
  std::vector<float> value = {7.0F};
  grid_description none = grid.description();
  none.ints.y_count = 0;
  EXPECT_EQ(BICUBIC_GRID_INTERPOLATIOND(grid.stored(), none, 0, at, at, value), success);
  EXPECT_EQ(
      BICUBIC_GEO_INTERPOLATION(1, " ", grid.description(), 9, 8, grid.stored(), 0, at, at, value),
      bicubic_bad_call);
  EXPECT_EQ(value[0], 7.0F);
  EXPECT_EQ(BICUBIC_GRID_INTERPOLATIOND(grid.stored(), none, 1, at, at, value), bicubic_bad_call);
  EXPECT_EQ(value[0], dummy);
}

}  // namespace
}  // namespace velmorankite
