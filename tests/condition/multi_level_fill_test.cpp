// SPDX-License-Identifier: MIT
#include "condition/multi_level_fill.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "condition/plain_fill.h"
#include "grid/dummy.h"
#include "support/grids.h"

namespace velmorankite {
namespace {

using testing::plain_level;

// Where a random grid has blanks.
enum class blanks { scattered, patches, lower_rows, few_valid, none };

std::vector<float> random_cells(const Lattice& lattice, blanks kind, std::mt19937& random) {
  std::vector<float> cells(static_cast<std::size_t>(lattice.cell_count()));
  std::uniform_real_distribution<float> value(-1000.0F, 1000.0F);
  std::uniform_int_distribution<int> percent(0, 99);
  const int centre = percent(random);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const auto column = static_cast<int>(i) % lattice.x_count;
    const auto row = static_cast<int>(i) / lattice.x_count;
    const bool valid[] = {percent(random) < 70, (column / 5 + row / 7 + centre) % 3 != 0,
                          row > lattice.y_count / 2, percent(random) < 2, true};
    cells[i] = valid[static_cast<int>(kind)] ? value(random) : dummy;
  }
  return cells;
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
    const auto kind = static_cast<blanks>(std::uniform_int_distribution(0, 4)(random));
    plain_level expected{lattice, random_cells(lattice, kind, random)};
    std::vector<float> cells = expected.cells;
    const std::int64_t expected_count = testing::plain_fill(expected);
    std::int64_t count = 0;
    const Status status = fill_levels(cells, lattice, count);
    ASSERT_EQ(status.failed(), expected_count < 0);
    ASSERT_EQ(count, std::max<std::int64_t>(expected_count, 0));
    ASSERT_EQ(testing::first_difference(expected.cells, cells), "")
        << "trial " << trial << ": " << lattice.x_count << " x " << lattice.y_count;
  }
}

}  // namespace
}  // namespace velmorankite
