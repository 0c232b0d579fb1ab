// Data along a line that a fill would lose, and the nodes that save them.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <span>
#include <vector>

#include "grid/lattice.h"

namespace velmorankite {

// The cells that the points of a line lie in, in their order along it; a cell may come repeatedly.
struct line_cells {
  std::vector<std::size_t> cells;  // places in the rows of the grid, the lowest row first, from 0
  bool closed = false;             // the first cell follows the last
};

// Makes sure that a fill sees all of a line. Level 1 takes every second column and row, and a line
// that runs along the others, or slowly drifts over them, would be lost to it: where more than 16
// points in a row lie on none of its nodes, the blank nodes within a cell of them take the mean of
// the valid cells round them.
//   lattice  of the grid, which has all cells of the line.
//   cells    in and out: its rows, the lowest first.
void add_line_nodes(const line_cells& line, const Lattice& lattice, std::span<float> cells);

}  // namespace velmorankite
