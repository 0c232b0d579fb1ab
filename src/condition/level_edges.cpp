// SPDX-License-Identifier: MIT
#include "condition/level_edges.h"

#include <algorithm>

#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// Columns whose first valid node lies in this row; gives their number.
VELMORANKITE_VECTOR_CLONES std::int32_t record_first(const float* cells, std::size_t count,
                                                     std::int32_t row, std::int32_t* first) {
  std::int32_t begun = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::int32_t before = first[i];
    const bool begins = is_valid(cells[i]) & (row < before);
    first[i] = begins ? row : before;
    begun += begins ? 1 : 0;
  }
  return begun;
}

VELMORANKITE_VECTOR_CLONES void record_last(const float* cells, std::size_t count, std::int32_t row,
                                            std::int32_t* last) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::int32_t before = last[i];
    last[i] = is_valid(cells[i]) ? row : before;
  }
}

}  // namespace

LevelEdges::ends::ends(std::int32_t lines, std::int32_t nodes)
    : first(static_cast<std::size_t>(lines), nodes), last(static_cast<std::size_t>(lines), 1) {}

LevelEdges::LevelEdges(const Lattice& lattice, std::int32_t reach)
    : column_count_(lattice.x_count),
      row_count_(lattice.y_count),
      reach_(reach),
      open_columns_(lattice.x_count),
      columns_(lattice.x_count, lattice.y_count),
      rows_(lattice.y_count, lattice.x_count) {}

void LevelEdges::record(std::int32_t row, std::span<const float> cells) {
  if (open_columns_ > 0 && row < row_count_) {
    open_columns_ -= record_first(cells.data(), cells.size(), row, columns_.first.data());
  }
  record_last(cells.data(), cells.size(), row, columns_.last.data());
  const auto j = static_cast<std::size_t>(row - 1);
  const auto valid = [](float value) { return is_valid(value); };
  const auto first = std::ranges::find_if(cells, valid);
  if (first != cells.end()) {
    const auto last = std::find_if(cells.rbegin(), cells.rend(), valid);
    rows_.first[j] = static_cast<std::int32_t>(first - cells.begin()) + 1;
    rows_.last[j] = static_cast<std::int32_t>(cells.rend() - last);
  }
}

std::vector<LevelEdges::extension> LevelEdges::column_extensions() const {
  std::vector<extension> nodes;
  for (std::size_t i = 0; i < columns_.first.size(); ++i) {
    const std::int32_t first = columns_.first[i];
    const std::int32_t last = columns_.last[i];
    for (std::int32_t step = 1; step <= reach_; ++step) {
      if (first > step && first < row_count_) {
        nodes.push_back({first - step, first, i});
      }
      if (last > 1 && last + step <= row_count_) {
        nodes.push_back({last + step, last, i});
      }
    }
  }
  std::ranges::sort(nodes, {}, &extension::row);
  return nodes;
}

bool LevelEdges::extends_row(std::int32_t row) const {
  const auto j = static_cast<std::size_t>(row - 1);
  const auto inside = [this](std::int32_t column) { return column > 1 && column < column_count_; };
  return inside(rows_.first[j]) || inside(rows_.last[j]);
}

void LevelEdges::extend_row(std::int32_t row, std::span<float> cells) const {
  const auto j = static_cast<std::size_t>(row - 1);
  const std::int32_t first = rows_.first[j];
  const std::int32_t last = rows_.last[j];
  for (std::int32_t step = 1; step <= reach_; ++step) {
    if (first > step && first < column_count_) {
      cells[static_cast<std::size_t>(first - step - 1)] =
          cells[static_cast<std::size_t>(first - 1)];
    }
    if (last > 1 && last + step <= column_count_) {
      cells[static_cast<std::size_t>(last + step - 1)] = cells[static_cast<std::size_t>(last - 1)];
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
      cells[node->column] = level.row(node->end_row)[node->column];
    }
    extend_row(row, cells);
    level.keep(row);
  }
}

}  // namespace velmorankite
