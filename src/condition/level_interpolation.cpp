// SPDX-License-Identifier: MIT
#include "condition/level_interpolation.h"

#include <algorithm>
#include <cmath>

#include "grid/catmull_rom.h"
#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// Points nearer to a node than this, |fx| + |fy| in cells, take the node's value.
constexpr double on_node = static_cast<double>(0.01F);

float cell_or_dummy(std::span<const float> row, std::int64_t column) {
  const bool inside = column >= 1 && column <= static_cast<std::int64_t>(row.size());
  return inside ? row[static_cast<std::size_t>(column - 1)] : dummy;
}

VELMORANKITE_VECTOR_CLONES void take_every_second(const float* nodes, std::size_t count,
                                                  float* values) {
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = nodes[2 * i];
  }
}

}  // namespace

LevelInterpolation::LevelInterpolation(const Lattice& points, LevelRows& nodes)
    : nodes_(nodes),
      columns_(plan_columns(points, nodes.lattice())),
      rows_(plan_rows(points, nodes.lattice())),
      halving_(columns_, nodes.lattice().x_count) {
  const std::vector<std::int32_t>& nearest = columns_.nearest;
  std::size_t i = 0;
  for (; i < nearest.size() && nearest[i] == 2 * static_cast<std::int32_t>(i) + 1; ++i) {
    largest_offset_ = std::max(largest_offset_, std::abs(columns_.offset[i]));
  }
  const bool none_behind = std::all_of(nearest.begin() + static_cast<std::ptrdiff_t>(i),
                                       nearest.end(), [](std::int32_t node) { return node == 0; });
  on_every_second_ = none_behind ? i : 0;
}

LevelInterpolation::row_window LevelInterpolation::rows_round(std::int32_t base) {
  row_window window;
  std::int32_t row = base - 1;
  for (std::span<const float>& cells : window) {
    if (row >= 1 && row <= nodes_.lattice().y_count) {
      cells = nodes_.row(row);
    }
    ++row;
  }
  return window;
}

float LevelInterpolation::value_at(const row_window& nodes, std::size_t row,
                                   std::size_t column) const {
  const std::span<const float> nearest_row =
      rows_.nearest[row] > rows_.base[row] ? nodes[2] : nodes[1];
  const float nearest = cell_or_dummy(nearest_row, columns_.nearest[column]);
  const double distance = std::abs(columns_.offset[column]) + std::abs(rows_.offset[row]);
  if (distance < on_node || !is_valid(nearest)) {
    return std::isnan(nearest) ? dummy : nearest;
  }
  CellBlock block{};
  for (std::size_t r = 0; r < nodes.size(); ++r) {
    for (std::int32_t c = 0; c < 4; ++c) {
      block.f[r][c] = cell_or_dummy(nodes[r], columns_.base[column] - 1 + c);
    }
  }
  patch_holes(block, nearest);
  const auto g = [&](int c) {
    return column_value(block.at(-1, c), block.at(0, c), block.at(1, c), block.at(2, c),
                        rows_.fraction[row]);
  };
  const float value = row_value(g(-1), g(0), g(1), g(2), columns_.fraction[column]);
  return std::isnan(value) ? dummy : value;
}

void LevelInterpolation::row(std::int32_t row, std::span<float> values) {
  const auto j = static_cast<std::size_t>(row - 1);
  if (rows_.nearest[j] == 0) {
    std::ranges::fill(values, dummy);
    return;
  }
  if (on_every_second_ > 0 && largest_offset_ + std::abs(rows_.offset[j]) < on_node) {
    take_every_second(nodes_.row(rows_.nearest[j]).data(), on_every_second_, values.data());
    std::ranges::fill(values.subspan(on_every_second_), dummy);
    return;
  }
  const row_window nodes = rows_round(rows_.base[j]);
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = value_at(nodes, j, i);
  }
}

fill_count LevelInterpolation::fill_row(std::int32_t row, bool complete, std::span<float> cells) {
  const auto j = static_cast<std::size_t>(row - 1);
  const std::int32_t base = rows_.base[j];
  const bool inside = base >= 2 && base + 2 <= nodes_.lattice().y_count;
  const double offset = std::abs(rows_.offset[j]);
  const bool on_row = halving_.largest_offset() + offset < on_node;
  if (!complete || !inside || !halving_.is_regular() || (!on_row && offset < on_node)) {
    return fill_by_points(j, cells);
  }
  const row_window nodes = rows_round(base);
  std::span<const float> node_row;
  if (on_row) {
    node_row = rows_.nearest[j] > base ? nodes[2] : nodes[1];
  }
  return halving_.fill(nodes, rows_.fraction[j], node_row, cells);
}

fill_count LevelInterpolation::fill_by_points(std::size_t row, std::span<float> cells) {
  const row_window nodes = rows_round(rows_.base[row]);
  fill_count result;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!is_valid(cells[i])) {
      cells[i] = value_at(nodes, row, i);
      ++result.filled;
      result.lost += is_valid(cells[i]) ? 0 : 1;
    }
  }
  return result;
}

}  // namespace velmorankite
