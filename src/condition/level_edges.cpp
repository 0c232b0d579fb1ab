// SPDX-License-Identifier: MIT
#include "condition/level_edges.h"

#include "grid/dummy.h"

namespace velmorankite {

LevelEdges::ends::ends(std::int32_t lines, std::int32_t nodes)
    : first(static_cast<std::size_t>(lines), nodes),
      last(static_cast<std::size_t>(lines), 1),
      first_value(static_cast<std::size_t>(lines), dummy),
      last_value(static_cast<std::size_t>(lines), dummy) {}

LevelEdges::LevelEdges(const Lattice& lattice, std::int32_t reach)
    : column_count_(lattice.x_count),
      row_count_(lattice.y_count),
      reach_(reach),
      columns_(lattice.x_count, lattice.y_count),
      rows_(lattice.y_count, lattice.x_count) {}

void LevelEdges::record(std::int32_t row, std::span<const float> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!is_valid(cells[i])) {
      continue;
    }
    if (row < columns_.first[i]) {
      columns_.first[i] = row;
      columns_.first_value[i] = cells[i];
    }
    if (row > columns_.last[i]) {
      columns_.last[i] = row;
      columns_.last_value[i] = cells[i];
    }
  }
  const auto j = static_cast<std::size_t>(row - 1);
  const auto column_of = [](std::size_t i) { return static_cast<std::int32_t>(i) + 1; };
  for (std::size_t i = 0; column_of(i) < rows_.first[j]; ++i) {
    if (is_valid(cells[i])) {
      rows_.first[j] = column_of(i);
      rows_.first_value[j] = cells[i];
    }
  }
  for (std::size_t i = cells.size() - 1; column_of(i) > rows_.last[j]; --i) {
    if (is_valid(cells[i])) {
      rows_.last[j] = column_of(i);
      rows_.last_value[j] = cells[i];
    }
  }
}

void LevelEdges::extend_columns(std::int32_t row, std::span<float> cells) const {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::int32_t first = columns_.first[i];
    const std::int32_t last = columns_.last[i];
    if (first > 1 && first < row_count_ && row < first && row >= first - reach_) {
      cells[i] = columns_.first_value[i];
    }
    if (last > 1 && last < row_count_ && row > last && row <= last + reach_) {
      cells[i] = columns_.last_value[i];
    }
  }
}

void LevelEdges::extend_row(std::int32_t row, std::span<float> cells) const {
  const auto j = static_cast<std::size_t>(row - 1);
  const std::int32_t first = rows_.first[j];
  const std::int32_t last = rows_.last[j];
  if (first > 1 && first < column_count_) {
    for (std::int32_t c = first - 1; c >= 1 && c >= first - reach_; --c) {
      cells[static_cast<std::size_t>(c - 1)] = rows_.first_value[j];
    }
  }
  if (last > 1 && last < column_count_) {
    for (std::int32_t c = last + 1; c <= column_count_ && c <= last + reach_; ++c) {
      cells[static_cast<std::size_t>(c - 1)] = rows_.last_value[j];
    }
  }
}

void LevelEdges::extend(LevelRows& level) const {
  for (std::int32_t j = 1; j <= row_count_; ++j) {
    const std::span<float> cells = level.row(j);
    extend_columns(j, cells);
    extend_row(j, cells);
    level.keep(j);
  }
}

}  // namespace velmorankite
