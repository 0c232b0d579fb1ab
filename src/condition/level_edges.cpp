// SPDX-License-Identifier: MIT
#include "condition/level_edges.h"

#include <algorithm>

namespace velmorankite {

LevelEdges::LevelEdges(const Lattice& lattice, std::int32_t reach)
    : column_count_(lattice.x_count),
      row_count_(lattice.y_count),
      reach_(reach),
      ends_(lattice.x_count, lattice.y_count) {}

std::vector<LevelEdges::extension> LevelEdges::column_extensions() const {
  std::vector<extension> nodes;
  for (std::int32_t column = 1; column <= column_count_; ++column) {
    const line_end_pair ends = ends_.column(column);
    for (std::int32_t step = 1; step <= reach_; ++step) {
      if (ends.first > step && ends.first < row_count_) {
        nodes.push_back({ends.first - step, column, ends.first_value});
      }
      if (ends.last > 1 && ends.last + step <= row_count_) {
        nodes.push_back({ends.last + step, column, ends.last_value});
      }
    }
  }
  std::ranges::sort(nodes, {}, &extension::row);
  return nodes;
}

bool LevelEdges::extends_row(std::int32_t row) const {
  const line_end_pair& ends = ends_.row(row);
  const auto inside = [this](std::int32_t column) { return column > 1 && column < column_count_; };
  return inside(ends.first) || inside(ends.last);
}

void LevelEdges::extend_row(std::int32_t row, std::span<float> cells) const {
  const line_end_pair& ends = ends_.row(row);
  for (std::int32_t step = 1; step <= reach_; ++step) {
    if (ends.first > step && ends.first < column_count_) {
      cells[static_cast<std::size_t>(ends.first - step - 1)] = ends.first_value;
    }
    if (ends.last > 1 && ends.last + step <= column_count_) {
      cells[static_cast<std::size_t>(ends.last + step - 1)] = ends.last_value;
    }
  }
}

void LevelEdges::extend(LevelRows& level) const {
  const std::vector<extension> nodes = column_extensions();
  auto node = nodes.begin();
  for (std::int32_t row = 1; row <= row_count_; ++row) {
    const bool has_nodes = node != nodes.end() && node->row == row;
    if (!has_nodes && !extends_row(row)) {
      continue;
    }
    const std::span<float> cells = level.row(row);
    for (; node != nodes.end() && node->row == row; ++node) {
      cells[static_cast<std::size_t>(node->column - 1)] = node->value;
    }
    extend_row(row, cells);
    level.keep(row);
  }
}

}  // namespace velmorankite
