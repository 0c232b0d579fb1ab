// SPDX-License-Identifier: MIT
#include "condition/level_interpolation.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "grid/catmull_rom.h"
#include "grid/dummy.h"

namespace velmorankite {
namespace {

// The four rows round a base row, from the one below it; empty beyond the lattice.
using row_window = std::array<std::span<const float>, 4>;

row_window rows_round(LevelRows& nodes, std::int32_t base) {
  row_window window;
  std::int32_t row = base - 1;
  for (std::span<const float>& cells : window) {
    if (row >= 1 && row <= nodes.lattice().y_count) {
      cells = nodes.row(row);
    }
    ++row;
  }
  return window;
}

float cell_or_dummy(std::span<const float> row, std::int64_t column) {
  const bool inside = column >= 1 && column <= static_cast<std::int64_t>(row.size());
  return inside ? row[static_cast<std::size_t>(column - 1)] : dummy;
}

// Points nearer to a node than this, |fx| + |fy| in cells, take the node's value.
constexpr double on_node = static_cast<double>(0.01F);

float cubic_value(const row_window& rows, std::int32_t base_column, float nearest, double fx,
                  double fy) {
  CellBlock block{};
  for (std::size_t r = 0; r < rows.size(); ++r) {
    for (std::int32_t c = 0; c < 4; ++c) {
      block.f[r][c] = cell_or_dummy(rows[r], base_column - 1 + c);
    }
  }
  patch_holes(block, nearest);
  const auto column = [&block, fy](int c) {
    return static_cast<double>(
        column_value(block.at(-1, c), block.at(0, c), block.at(1, c), block.at(2, c), fy));
  };
  return row_value(column(-1), column(0), column(1), column(2), fx);
}

}  // namespace

LevelInterpolation::LevelInterpolation(const Lattice& points, LevelRows& nodes)
    : nodes_(nodes),
      columns_(plan_columns(points, nodes.lattice())),
      rows_(plan_rows(points, nodes.lattice())) {}

void LevelInterpolation::row(std::int32_t row, std::span<float> values) {
  const auto j = static_cast<std::size_t>(row - 1);
  if (rows_.nearest[j] == 0) {
    std::ranges::fill(values, dummy);
    return;
  }
  const row_window rows = rows_round(nodes_, rows_.base[j]);
  const std::span<const float> nearest_row = rows_.nearest[j] > rows_.base[j] ? rows[2] : rows[1];
  for (std::size_t i = 0; i < values.size(); ++i) {
    const float nearest = cell_or_dummy(nearest_row, columns_.nearest[i]);
    const bool coincident = std::abs(columns_.offset[i]) + std::abs(rows_.offset[j]) < on_node;
    const float value =
        coincident || !is_valid(nearest)
            ? nearest
            : cubic_value(rows, columns_.base[i], nearest, columns_.fraction[i], rows_.fraction[j]);
    values[i] = std::isnan(value) ? dummy : value;
  }
}

}  // namespace velmorankite
