// SPDX-License-Identifier: MIT
#include "utilities/point_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <random>
#include <vector>

#include "grid/dummy.h"
#include "support/grids.h"
#include "support/sampled_grid.h"
#include "support/temporary_folder.h"
#include "utilities/point_evaluation.h"

namespace velmorankite {
namespace {

using testing::first_difference;
using testing::rough_cells;
using testing::rough_coordinates;
using testing::SampledGrid;

constexpr std::int32_t from_file = 0;
constexpr std::int32_t in_memory = 1;

grid_description described(const Lattice& lattice, std::int32_t sense = 1) {
  grid_description grid;
  grid.ints.storage_sense = sense;
  grid.ints.x_count = grid.ints.out_x_count = lattice.x_count;
  grid.ints.y_count = grid.ints.out_y_count = lattice.y_count;
  grid.reals.x_min = grid.reals.out_x_min = lattice.x_min;
  grid.reals.x_max = grid.reals.out_x_max = lattice.x(lattice.x_count);
  grid.reals.y_min = grid.reals.out_y_min = lattice.y_min;
  grid.reals.y_max = grid.reals.out_y_max = lattice.y(lattice.y_count);
  grid.reals.x_cell = grid.reals.out_x_cell = lattice.x_cell;
  grid.reals.y_cell = grid.reals.out_y_cell = lattice.y_cell;
  return grid;
}

float value_at(const std::vector<float>& cells, const Lattice& lattice, double x, double y,
               value_scale scale = value_scale::linear) {
  return points_of_grid(cells, 1, lattice, scale).at(x, y);
}

constexpr Lattice oblong{10.0, -3.0, 2.0, 0.5, 7, 5};

double quadratic(double x, double y) {
  const double s = (x - 15.0) / 4.0;
  return 3.0 + s - 2.0 * y + s * s - 0.5 * y * y + s * y + 0.25 * s * s * y * y;
}

std::vector<float> cells_of(const Lattice& lattice, double (*field)(double, double)) {
  std::vector<float> cells;
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
      cells.push_back(static_cast<float>(field(lattice.x(column), lattice.y(row))));
    }
  }
  return cells;
}

TEST(PointValues, a_quadratic_surface_is_met_everywhere_up_to_half_a_cell_beyond_the_grid) {
  const std::vector<float> plain = cells_of(oblong, quadratic);
  const std::vector<float> powers =
      cells_of(oblong, [](double x, double y) { return std::pow(10.0, quadratic(x, y) / 4.0); });
  for (int i = 0; i <= 40; ++i) {
    for (int j = 0; j <= 20; ++j) {
      const double x = 9.0 + 0.35 * i;
      const double y = -3.25 + 0.125 * j;
      const double expected = quadratic(x, y);
      EXPECT_NEAR(value_at(plain, oblong, x, y), expected, 4.0E-5) << x << ' ' << y;
      const float power = value_at(powers, oblong, x, y, value_scale::logarithmic);
      EXPECT_NEAR(std::log10(power), expected / 4.0, 4.0E-6) << x << ' ' << y;
    }
  }
  EXPECT_EQ(value_at(plain, oblong, 8.99, -2.0), dummy);
  EXPECT_EQ(value_at(plain, oblong, 12.0, -0.74), dummy);
}

// Cells 1 to 16 on four by four nodes at whole numbers from 0.
constexpr Lattice small{0.0, 0.0, 1.0, 1.0, 4, 4};
std::vector<float> small_cells(std::initializer_list<std::size_t> holes = {}) {
  std::vector<float> cells(16);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    cells[i] = static_cast<float>(i + 1);
  }
  for (const std::size_t hole : holes) {
    cells[hole] = dummy;
  }
  return cells;
}

TEST(PointValues, the_two_families_go_by_different_base_cells) {
  struct example {
    std::size_t hole;  // place of the empty cell
    double x, y;
    float from_half_a_cell, from_the_node;
  };
  const example examples[] = {
      {15, 1.9, 1.9, 10.5F, 10.5F},  // a hole that is not near
      {5, 1.3, 1.3, 7.5F, dummy},    // the base cell by the node alone
      {5, 2.0, 2.0, dummy, 11.0F},   // on a node that has data: its base is one below
      {5, 2.4, 2.4, dummy, 13.0F},   //
      {10, 2.0, 2.0, 11.0F, dummy},  // the node itself is empty
      {0, 0.0, 0.0, dummy, dummy},
  };
  for (const example& e : examples) {
    const std::vector<float> cells = small_cells({e.hole});
    const grid_description grid = described(small);
    float half = 7.0F;
    float node = 7.0F;
    EXPECT_EQ(GRDVALD(in_memory, {}, grid, cells, 1, {&e.x, 1}, {&e.y, 1}, {&half, 1}), success);
    EXPECT_EQ(GEOVAL(cells, grid, 1, {&e.x, 1}, {&e.y, 1}, {&node, 1}), success);
    EXPECT_NEAR(half, e.from_half_a_cell, std::fabs(e.from_half_a_cell) * 1.0E-6) << e.x;
    EXPECT_NEAR(node, e.from_the_node, std::fabs(e.from_the_node) * 1.0E-6) << e.x;
  }
}

TEST(PointValues, a_cell_without_a_logarithm_counts_as_a_hundred_millionth) {
  std::vector<float> cells = small_cells();
  cells[5] = -5.0F;
  EXPECT_NEAR(value_at(cells, small, 1.0, 1.0, value_scale::logarithmic), 1.0E-8, 1.0E-14);
  cells[0] = 0.0F;  // the point lies on its base cell
  EXPECT_EQ(value_at(cells, small, 0.0, 0.0, value_scale::logarithmic), dummy);
}

TEST(PointValues, cells_that_a_narrow_grid_does_not_have_count_as_empty) {
  const Lattice narrow{0.0, 0.0, 1.0, 1.0, 2, 3};
  const std::vector<float> cells = {1.0F, 3.0F, 2.0F, 4.0F, 3.0F, 5.0F};
  EXPECT_NEAR(value_at(cells, narrow, 0.4, 1.3), 3.1F, 1.0E-6);
  EXPECT_NEAR(value_at(cells, narrow, 1.5, 2.5), 6.5F, 1.0E-6);
  EXPECT_EQ(value_at({1.0F, 2.0F}, {0.0, 0.0, 1.0, 1.0, 1, 2}, 0.2, 0.7), dummy);
}

// Every cell of a file is a point's nearest in turn, as runs along rows and one by one.
TEST(PointValues, a_file_gives_the_bits_of_memory_but_for_its_last_three_cells) {
  for (const std::int32_t sense : {1, -2}) {
    const Lattice lattice{0.3, 0.7, 1.1, 0.9, 40, 13};
    const SampledGrid grid(lattice, rough_cells(0.05, 5), sense);
    std::mt19937 generator(2);
    std::vector<double> x = rough_coordinates(0.3, 1.1, 40, 900, generator);
    std::vector<double> y = rough_coordinates(0.7, 0.9, 13, 900, generator);
    for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
      for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
        x.push_back(lattice.x(column) + 0.25);
        y.push_back(lattice.y(row) + 0.25);
      }
    }
    for (const std::int32_t sign : {1, -1}) {
      const auto count = sign * static_cast<std::int32_t>(x.size());
      std::vector<float> memory(x.size());
      std::vector<float> file(x.size());
      ASSERT_EQ(GRDVALD(in_memory, {}, grid.description(), grid.stored(), count, x, y, memory),
                success);
      ASSERT_EQ(GRDVALD(from_file, grid.path().string(), grid.description(), {}, count, x, y, file),
                success);
      // The block of the file's last row and last three columns; on its edge rounding decides.
      const auto in_last_block = [&](std::size_t i, double margin) {
        const bool last_rows =
            sense == 1 ? y[i] > lattice.y(12) + 0.45 - margin : y[i] < lattice.y(3) + 0.45 + margin;
        return x[i] > lattice.x(39) + 0.55 - margin && last_rows;
      };
      for (std::size_t i = 0; i < x.size(); ++i) {
        EXPECT_TRUE(!in_last_block(i, -1.0E-6) || file[i] == dummy) << x[i] << ' ' << y[i];
        memory[i] = in_last_block(i, 1.0E-6) ? file[i] : memory[i];
      }
      EXPECT_EQ(first_difference(memory, file), "") << sense << ' ' << sign;
    }
  }
}

TEST(PointValues, points_beyond_the_end_of_a_cut_file_have_none) {
  const SampledGrid grid({0.0, 0.0, 1.0, 1.0, 4, 6},
                         [](auto column, auto row) { return static_cast<float>(column * row); });
  std::filesystem::resize_file(grid.path(), 512 + 4 * 4 * 4 - 3);  // into the last cell of row 4
  const std::vector<double> x = {1.0, 1.0, 3.0, 1.0};
  const std::vector<double> y = {2.0, 2.8, 2.8, 4.0};
  std::vector<float> values(4);
  ASSERT_EQ(GRDVALD(from_file, grid.path().string(), grid.description(), {}, 4, x, y, values),
            success);
  EXPECT_NEAR(values[0], 6.0F, 1.0E-5);
  EXPECT_NEAR(values[1], 7.6F, 1.0E-5);
  EXPECT_EQ(values[2], dummy);
  EXPECT_EQ(values[3], dummy);
}

TEST(PointValues, single_precision_places_a_point_as_its_floats_tell) {
  const Lattice tenths{0.3, 0.0, 0.1, 1.0, 4, 4};
  std::vector<float> cells(16);
  for (int i = 0; i < 16; ++i) {
    cells[static_cast<std::size_t>(i)] = 1000.0F * static_cast<float>(i % 4 - 2);
  }
  const float x = 0.5F;
  const float y = 1.0F;
  float value = 0.0F;
  ASSERT_EQ(GRDVAL(in_memory, {}, described(tenths), cells, 1, {&x, 1}, {&y, 1}, {&value, 1}),
            success);
  // The base is the second column. In double the offset from it is another by 3.0E-8.
  const float offset = (x - 0.3F - 0.1F) / 0.1F;
  EXPECT_NEAR(value, 1000.0 * (double{offset} - 1.0), 1.0E-6);
}

TEST(PointValues, integers_are_cut_towards_zero_and_held_in_16_bits) {
  const std::vector<std::int16_t> cells = {-10, -9, -8, -9, -8, -7, 32767, 32767, 32767};
  const std::vector<std::int16_t> holes(9, std::int16_t{-32768});
  const Lattice lattice{0.0, 0.0, 1.0, 1.0, 3, 3};
  const std::vector<double> x = {0.3, 0.6, 1.0, 1.0, 9.0};
  const std::vector<double> y = {0.0, 0.0, 2.5, 0.7, 1.0};
  std::vector<std::int16_t> values(5);
  const grid_description grid = described(lattice);
  ASSERT_EQ(GRDVALI2(in_memory, {}, grid, cells, 5, x, y, values), success);
  EXPECT_EQ(values, (std::vector<std::int16_t>{-9, -9, 32767, -3449, -32767}));
  ASSERT_EQ(GRDVALI2(in_memory, {}, grid, holes, 5, x, y, values), success);
  EXPECT_EQ(values, std::vector<std::int16_t>(5, dummy_int16));
}

TEST(PointValues, a_call_that_names_no_grid_fails_and_leaves_dummies) {
  const std::vector<float> cells = small_cells();
  const double at = 1.5;
  const auto values_of = [&](std::int32_t flag, const grid_description& grid, std::size_t there) {
    float value = 7.0F;
    const Status status = GRDVALD(flag, "  ", grid, std::span(cells).first(there), 1, {&at, 1},
                                  {&at, 1}, {&value, 1});
    EXPECT_EQ(value < 0.0F, status.failed());
    return status;
  };
  EXPECT_EQ(values_of(in_memory, described(small), 16), success);
  EXPECT_EQ(values_of(in_memory, described(small), 15), point_values_bad_call);
  EXPECT_EQ(values_of(from_file, described(small), 16), point_values_bad_call);
  for (const std::int32_t format : {3, 4, 5, 6, 7}) {
    grid_description grid = described(small);
    grid.ints.format_code = format;
    EXPECT_EQ(values_of(in_memory, grid, 16).failed(), format >= 4 && format <= 6) << format;
  }
  EXPECT_EQ(values_of(in_memory, described({0.0, 0.0, 1.0, 1.0, 4, 0}), 16), point_values_bad_call);
}

}  // namespace
}  // namespace velmorankite
