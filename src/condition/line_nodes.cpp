// SPDX-License-Identifier: MIT
#include "condition/line_nodes.h"

#include <algorithm>
#include <cstdint>

#include "condition/level_build.h"
#include "condition/level_rows.h"
#include "grid/dummy.h"

namespace velmorankite {
namespace {

// Points in a row that may miss the nodes: over so few, the line is still seen on either side.
constexpr std::ptrdiff_t longest_stretch = 16;

// A cell of level 0, its column and row from 1.
struct grid_cell {
  std::int64_t column;
  std::int64_t row;
};

grid_cell cell_at(std::size_t place, std::size_t width) {
  return {static_cast<std::int64_t>(place % width) + 1,
          static_cast<std::int64_t>(place / width) + 1};
}

struct node_value {
  std::size_t place;
  float value;
};

// The lowest column or row within one of a position on level 0 that level 1 has.
std::int64_t first_near(std::int64_t position) {
  return is_on_level_1(position) ? position : position - 1;
}

// The nodes within a cell of a cell that have no value, with the mean of the cells round them.
void add_nodes_round(grid_cell cell, LevelRows& level_0, std::vector<node_value>& nodes) {
  const Lattice& lattice = level_0.lattice();
  const std::int64_t last_column = std::min<std::int64_t>(cell.column + 1, lattice.x_count);
  const std::int64_t last_row = std::min<std::int64_t>(cell.row + 1, lattice.y_count);
  for (std::int64_t row = first_near(cell.row); row <= last_row; row += level_step) {
    const std::span<const float> node_row = level_0.row(static_cast<std::int32_t>(row));
    const auto nearby = rows_nearby(level_0, row);
    for (std::int64_t column = first_near(cell.column); column <= last_column;
         column += level_step) {
      const std::size_t in_row = static_cast<std::size_t>(column) - 1;
      const float mean = mean_nearby(nearby, column);
      if (!is_valid(node_row[in_row]) && is_valid(mean)) {
        nodes.push_back({static_cast<std::size_t>(row - 1) * node_row.size() + in_row, mean});
      }
    }
  }
}

}  // namespace

void add_line_nodes(const line_cells& line, const Lattice& lattice, std::span<float> cells) {
  MemoryRows level_0(lattice, cells);
  const auto is_node = [&](std::size_t place) {
    const grid_cell cell = cell_at(place, level_0.width());
    return is_on_level_1(cell.column) && is_on_level_1(cell.row);
  };
  std::vector<std::size_t> path = line.cells;
  if (line.closed) {
    // From a node on, so that its join cuts no stretch in two.
    std::rotate(path.begin(), std::ranges::find_if(path, is_node), path.end());
  }
  std::vector<node_value> added;
  auto begin = path.cbegin();  // of the points since the last node
  while (begin != path.cend()) {
    const auto end = std::find_if(begin, path.cend(), is_node);
    if (end - begin > longest_stretch) {
      std::for_each(begin, end, [&](std::size_t place) {
        add_nodes_round(cell_at(place, level_0.width()), level_0, added);
      });
    }
    begin = end == path.cend() ? end : end + 1;
  }
  // All means are of what the grid held before.
  for (const node_value& node : added) {
    cells[node.place] = node.value;
  }
}

}  // namespace velmorankite
