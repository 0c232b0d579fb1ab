// SPDX-License-Identifier: MIT
#include "condition/line_nodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "grid/dummy.h"
#include "support/grids.h"

namespace velmorankite {
namespace {

using testing::cell_index;

constexpr Lattice lattice{0.0, 0.0, 1.0, 1.0, 24, 14};

std::vector<float> with_nodes(const line_cells& line) {
  std::vector<float> cells(static_cast<std::size_t>(lattice.cell_count()), dummy);
  for (const std::size_t place : line.cells) {
    cells[place] = static_cast<float>(place % 24 + 1);  // its column
  }
  add_line_nodes(line, lattice, cells);
  return cells;
}

TEST(LineNodes, more_than_sixteen_points_between_the_nodes_get_those_on_either_side) {
  line_cells line;
  for (std::int32_t column = 3; column <= 19; ++column) {
    line.cells.push_back(cell_index(column, 4, 24));
    const std::vector<float> cells = with_nodes(line);
    const bool added = column == 19;
    EXPECT_EQ(std::ranges::count_if(cells, is_valid), added ? 17 + 2 * 9 : column - 2);
    for (const std::int32_t row : {3, 5}) {  // the means of two cells at the ends, of three between
      EXPECT_EQ(cells[cell_index(3, row, 24)], added ? 3.5F : dummy);
      EXPECT_EQ(cells[cell_index(11, row, 24)], added ? 11.0F : dummy);
      EXPECT_EQ(cells[cell_index(19, row, 24)], added ? 18.5F : dummy);
    }
  }
}

// Down row 2 and up row 14, the last, with nodes at two places: stretches of 19 and 25.
TEST(LineNodes, a_closed_line_gets_the_same_ones_wherever_it_begins) {
  line_cells ring{{}, true};
  for (std::int32_t column = 2; column <= 24; ++column) {
    ring.cells.insert(ring.cells.begin(), cell_index(column, 2, 24));
    ring.cells.push_back(cell_index(column, 14, 24));
  }
  ring.cells[1] = cell_index(23, 1, 24);
  ring.cells[21] = cell_index(3, 1, 24);
  const std::vector<float> expected = with_nodes(ring);
  EXPECT_TRUE(is_valid(expected[cell_index(11, 1, 24)]));
  EXPECT_FALSE(is_valid(expected[cell_index(1, 4, 24)]));  // follows column 24 of row 3
  for (std::size_t begin = 1; begin < ring.cells.size(); ++begin) {
    std::rotate(ring.cells.begin(), ring.cells.begin() + 1, ring.cells.end());
    EXPECT_EQ(testing::first_difference(expected, with_nodes(ring)), "") << begin;
  }
}

}  // namespace
}  // namespace velmorankite
