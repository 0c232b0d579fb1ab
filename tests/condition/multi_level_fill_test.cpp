// SPDX-License-Identifier: MIT
#include "condition/multi_level_fill.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

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

std::int64_t blank_count(const std::vector<float>& cells) {
  return std::ranges::count_if(cells, [](float value) { return !is_valid(value); });
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

void expect_plain_fill(const plain_level& level, const std::string& name) {
  plain_level expected = level;
  std::vector<float> cells = level.cells;
  const std::int64_t expected_count = testing::plain_fill(expected);
  std::int64_t count = 0;
  const Status status = fill_levels(cells, level.lattice, count);
  ASSERT_EQ(status.failed(), expected_count < 0) << name;
  ASSERT_EQ(count, std::max<std::int64_t>(expected_count, 0)) << name;
  ASSERT_EQ(testing::first_difference(expected.cells, cells), "") << name;
}

// Lattices whose nodes fall exactly on those of the coarser levels, and those that miss them by a
// rounding, or by whole cells.
const Lattice lattice_shapes[] = {{0.0, 0.0, 1.0, 1.0, 0, 0},
                                  {100.0, -7.5, 0.25, 12.5, 0, 0},
                                  {123456.7, 7654321.3, 25.3, 25.3, 0, 0},
                                  {-0.1, 0.3, 0.1, 1.0 / 60.0, 0, 0},
                                  {1.0E13, 1.0E9, 0.01, 0.3, 0, 0},
                                  {1.0E17, 0.0, 1.0, 1.0, 0, 0}};

TEST(MultiLevelFill, fast_fill_is_the_plain_one_to_the_bit) {
  std::mt19937 random(20240607);
  for (std::size_t trial = 0; trial < 1500; ++trial) {
    Lattice lattice = lattice_shapes[trial % std::size(lattice_shapes)];
    lattice.x_count = std::uniform_int_distribution(4, 44)(random);
    lattice.y_count = std::uniform_int_distribution(4, 44)(random);
    expect_plain_fill(random_level(lattice, random), "trial " + std::to_string(trial));
  }
}

// The columns are worked on in runs, which small grids do not fill.
TEST(MultiLevelFill, wide_grids_fill_like_narrow_ones) {
  std::mt19937 random(7);
  for (const std::int32_t width : {511, 512, 513, 514, 1023, 1025, 1027}) {
    for (const Lattice& shape : {lattice_shapes[0], lattice_shapes[2], lattice_shapes[3]}) {
      Lattice lattice = shape;
      lattice.x_count = width;
      lattice.y_count = 21;
      expect_plain_fill(random_level(lattice, random), std::to_string(width));
    }
  }
}

TEST(MultiLevelFill, values_near_the_limits_of_floats_fill_like_any_other) {
  std::mt19937 random(11);
  const float extremes[] = {3.4E38F,
                            -0.9E30F,
                            0.0F,
                            std::numeric_limits<float>::infinity(),
                            -std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN()};
  for (int trial = 0; trial < 60; ++trial) {
    plain_level level = random_level({0.0, 0.0, 1.0, 1.0, 37, 29}, random);
    for (const float value : extremes) {
      level.at(1 + static_cast<int>(random() % 37), 1 + static_cast<int>(random() % 29)) = value;
    }
    expect_plain_fill(level, "trial " + std::to_string(trial));
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

TEST(MultiLevelFill, smallest_grid_takes_the_mean_of_every_second_cell) {
  plain_level level = level_of({0.0, 0.0, 1.0, 1.0, 4, 4}, [](std::int32_t c, std::int32_t r) {
    return c == 2 && r == 3 ? dummy : static_cast<float>(10 * c + r);
  });
  std::int64_t count = 0;
  ASSERT_EQ(fill_levels(level.cells, level.lattice, count), success);
  EXPECT_EQ(level.at(2, 3), (11.0F + 31.0F + 13.0F + 33.0F) / 4.0F);
  EXPECT_EQ(level.at(2, 2), 22.0F);
  EXPECT_EQ(count, 1);
}

TEST(MultiLevelFill, grid_without_a_blank_stays_and_counts_the_corners_past_its_end) {
  const auto ramp = [](std::int32_t c, std::int32_t r) { return static_cast<float>(c - 3 * r); };
  struct example {
    std::int32_t x_count, y_count;
    std::int64_t filled;
  };
  // Levels 1 and 2 of 10 x 10 have their corner node past both ends of the data; those of 9 x 9
  // end on the data, and in 10 x 9 every column that passes them is reached along its rows.
  for (const example& e : {example{10, 10, 2}, example{9, 9, 0}, example{10, 9, 0}}) {
    plain_level level = level_of({0.0, 0.0, 1.0, 1.0, e.x_count, e.y_count}, ramp);
    const std::vector<float> before = level.cells;
    std::int64_t count = -1;
    ASSERT_EQ(fill_levels(level.cells, level.lattice, count), success);
    EXPECT_EQ(level.cells, before);
    EXPECT_EQ(count, e.filled) << e.x_count << " x " << e.y_count;
  }
}

TEST(MultiLevelFill, few_cells_spread_their_mean_over_the_grid) {
  struct example {
    std::vector<std::array<std::int32_t, 2>> cells;  // valid ones, with the values 2, 6, ...
    float value;
    const char* name;
  };
  const example examples[] = {
      {{{3, 3}}, 2.0F, "one cell on a node of level 1"},
      {{{2, 4}}, 2.0F, "one cell between the nodes"},
      {{{1, 1}, {5, 3}}, 4.0F, "two cells on nodes"},
      {{{1, 2}, {5, 2}}, 4.0F, "two cells in an even row"},
  };
  for (const example& e : examples) {
    plain_level level =
        level_of({0.0, 0.0, 1.0, 1.0, 5, 5}, [](std::int32_t, std::int32_t) { return dummy; });
    float value = 2.0F;
    for (const auto& [column, row] : e.cells) {
      level.at(column, row) = value;
      value += 4.0F;
    }
    const plain_level before = level;
    std::int64_t count = 0;
    ASSERT_EQ(fill_levels(level.cells, level.lattice, count), success) << e.name;
    EXPECT_EQ(count, blank_count(before.cells)) << e.name;
    for (std::size_t i = 0; i < level.cells.size(); ++i) {
      const float given = before.cells[i];
      EXPECT_EQ(level.cells[i], is_valid(given) ? given : e.value) << e.name << ", cell " << i;
    }
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

TEST(MultiLevelFill, grid_without_data_or_too_small_is_refused_and_stays) {
  const Lattice lattices[] = {{0.0, 0.0, 1.0, 1.0, 9, 7}, {0.0, 0.0, 1.0, 1.0, 3, 7}};
  for (const Lattice& lattice : lattices) {
    const float value = lattice.x_count == 3 ? 1.0F : std::numeric_limits<float>::quiet_NaN();
    std::vector<float> cells(static_cast<std::size_t>(lattice.cell_count()), dummy);
    cells[4] = value;
    const std::vector<float> before = cells;
    std::int64_t count = 5;
    EXPECT_EQ(fill_levels(cells, lattice, count), fill_impossible);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(testing::first_difference(before, cells), "");
    EXPECT_EQ(fill_levels(std::span(cells).first(8), lattice, count), fill_impossible);
  }
}

}  // namespace
}  // namespace velmorankite
