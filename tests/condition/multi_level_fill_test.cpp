// SPDX-License-Identifier: MIT
#include "condition/multi_level_fill.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "condition/fill_pyramid.h"
#include "condition/plain_fill.h"
#include "grid/dummy.h"
#include "support/grids.h"

namespace velmorankite {
namespace {

using testing::cell_function;
using testing::plain_level;

plain_level level_of(const Lattice& lattice, const cell_function& cell) {
  plain_level level{lattice, {}};
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
      level.cells.push_back(cell(column, row));
    }
  }
  return level;
}

// Where a random grid has blanks.
enum class blanks { scattered, patches, lower_rows, few_valid, none };

plain_level random_level(const Lattice& lattice, std::mt19937& random) {
  std::uniform_real_distribution<float> value(-1000.0F, 1000.0F);
  std::uniform_int_distribution<int> percent(0, 99);
  const auto kind = static_cast<blanks>(percent(random) % 5);
  const int shift = percent(random);
  return level_of(lattice, [&](std::int32_t column, std::int32_t row) {
    const bool valid[] = {percent(random) < 70, (column / 5 + row / 7 + shift) % 3 != 0,
                          row > lattice.y_count / 2, percent(random) < 2, true};
    const float cell = value(random);
    return valid[static_cast<int>(kind)] ? cell : dummy;
  });
}

// Lattices whose nodes fall exactly on those of the coarser levels, and those that miss them by a
// rounding, or by whole cells.
const Lattice lattice_shapes[] = {{0.0, 0.0, 1.0, 1.0, 0, 0},
                                  {100.0, -7.5, 0.25, 12.5, 0, 0},
                                  {123456.7, 7654321.3, 25.3, 25.3, 0, 0},
                                  {-0.1, 0.3, 0.1, 1.0 / 60.0, 0, 0},
                                  {1.0E13, 1.0E9, 0.01, 0.3, 0, 0},
                                  {1.0E17, 0.0, 1.0, 1.0, 0, 0}};

// A few cells near the limits of floats among the others.
void add_extremes(plain_level& level, std::mt19937& random) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  for (const float value : {3.4E38F, -0.9E30F, infinity, -infinity, std::nanf("")}) {
    level.cells[random() % level.cells.size()] = value;
  }
}

TEST(MultiLevelFill, fast_fill_is_the_plain_one_to_the_bit) {
  std::mt19937 random(20240607);
  for (std::size_t trial = 0; trial < 1500; ++trial) {
    Lattice lattice = lattice_shapes[trial % std::size(lattice_shapes)];
    lattice.x_count = std::uniform_int_distribution(4, 44)(random);
    lattice.y_count = std::uniform_int_distribution(4, 44)(random);
    plain_level expected = random_level(lattice, random);
    if (trial % 8 == 0) {
      add_extremes(expected, random);
    }
    std::vector<float> cells = expected.cells;
    const std::int64_t expected_count = testing::plain_fill(expected);
    MemoryRows rows(lattice, cells);
    FillPyramid pyramid(rows, {});
    ASSERT_EQ(pyramid.build() ? pyramid.fill(nullptr) : -1, expected_count) << trial;
    ASSERT_EQ(testing::first_difference(expected.cells, cells), "")
        << "trial " << trial << ": " << lattice.x_count << " x " << lattice.y_count;
  }
}

TEST(MultiLevelFill, blank_cell_between_nodes_takes_the_cubic_through_the_nodes) {
  // Half-way the cubic is exact for polynomials of the third degree, so a shift by one cell or a
  // wrong weight shows at once.
  const auto surface = [](std::int32_t column, std::int32_t row) {
    const float x = static_cast<float>(column - 9) / 8.0F;
    const float y = static_cast<float>(row - 8) / 8.0F;
    return 2.0F + x - 3.0F * y + x * x * y - 4.0F * x * x * x + y * y * y;
  };
  plain_level level = level_of({0.0, 0.0, 1.0, 1.0, 19, 17}, surface);
  const std::int32_t inner_blanks[][2] = {{8, 8}, {8, 11}, {11, 8}, {6, 6}, {14, 12}, {13, 6}};
  for (const auto& [column, row] : inner_blanks) {
    level.at(column, row) = dummy;
  }
  std::int64_t count = 0;
  ASSERT_EQ(fill_levels(level.cells, level.lattice, count), success);
  for (const auto& [column, row] : inner_blanks) {
    EXPECT_NEAR(level.at(column, row), surface(column, row), 2.0E-6F) << column << " " << row;
  }
}

// Rows are searched for blanks by blocks of 64 cells.
TEST(MultiLevelFill, a_lone_blank_is_found_in_whatever_column_it_lies) {
  for (std::int32_t blank = 1; blank <= 150; ++blank) {
    plain_level level = level_of({0.0, 0.0, 1.0, 1.0, 150, 9}, [&](int column, int row) {
      return column == blank && row == 5 ? dummy : 3.0F;
    });
    std::int64_t count = 0;
    ASSERT_EQ(fill_levels(level.cells, level.lattice, count), success);
    EXPECT_EQ(level.at(blank, 5), 3.0F) << blank;
  }
}

TEST(MultiLevelFill, few_cells_spread_their_mean_over_the_grid) {
  // On a node of level 1, between the nodes, and in an even row: two cells each, or the same twice.
  const std::array<std::int32_t, 4> places[] = {
      {3, 3, 3, 3}, {2, 4, 2, 4}, {1, 1, 5, 3}, {1, 2, 5, 2}};
  for (const auto& [c1, r1, c2, r2] : places) {
    plain_level level =
        level_of({0.0, 0.0, 1.0, 1.0, 5, 5}, [](std::int32_t, std::int32_t) { return dummy; });
    level.at(c1, r1) = 2.0F;
    level.at(c2, r2) = 6.0F;
    plain_level expected = level;
    const float mean = (level.at(c1, r1) + level.at(c2, r2)) / 2.0F;
    std::ranges::replace(expected.cells, dummy, mean);
    std::int64_t count = 0;
    ASSERT_EQ(fill_levels(level.cells, level.lattice, count), success);
    EXPECT_EQ(testing::first_difference(expected.cells, level.cells), "") << c1 << ' ' << r1;
  }
}

TEST(MultiLevelFill, line_of_data_in_an_even_row_fills_like_one_in_an_odd_row) {
  const auto profile = [](std::int32_t column) {
    return std::sin(static_cast<float>(column) / 12.0F);
  };
  const auto filled = [&](std::int32_t line) {
    plain_level level =
        level_of({0.0, 0.0, 1.0, 1.0, 65, 65}, [&](std::int32_t column, std::int32_t row) {
          return row == line ? profile(column) : dummy;
        });
    std::int64_t count = 0;
    EXPECT_EQ(fill_levels(level.cells, level.lattice, count), success);
    return level;
  };
  plain_level even = filled(32);
  plain_level odd = filled(33);
  for (std::int32_t row = -8; row <= 8; ++row) {
    for (std::int32_t column = 9; column <= 57; ++column) {
      EXPECT_NEAR(even.at(column, 32 + row), odd.at(column, 33 + row), 0.06F)
          << column << " " << row;
    }
  }
}

TEST(MultiLevelFill, grid_without_a_blank_or_without_data_or_too_small_stays) {
  struct example {
    std::int32_t x_count;
    float value, front;  // of all cells but the first, and of that
    Status status;
  };
  for (const example& e :
       {example{10, 2.0F, 3.0F, success}, example{9, dummy, std::nanf(""), fill_impossible},
        example{3, dummy, 1.0F, fill_impossible}}) {
    const Lattice lattice{0.0, 0.0, 1.0, 1.0, e.x_count, 8};
    std::vector<float> cells(static_cast<std::size_t>(lattice.cell_count()), e.value);
    cells[0] = e.front;
    const std::vector<float> before = cells;
    std::int64_t count = 5;
    EXPECT_EQ(fill_levels(cells, lattice, count), e.status) << e.x_count;
    EXPECT_EQ(count, 0);
    EXPECT_EQ(testing::first_difference(before, cells), "");
    EXPECT_EQ(fill_levels(std::span(cells).first(8), lattice, count), fill_impossible);
    EXPECT_EQ(fill_levels(cells, lattice, count, {{cells.size()}}), fill_impossible);
  }
}

}  // namespace
}  // namespace velmorankite
