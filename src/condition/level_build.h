// Building a coarser level of a fill from the one below it.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "condition/level_rows.h"

namespace velmorankite {

// Columns and rows of a level from one node of the next coarser level to the next.
inline constexpr std::int64_t level_step = 2;

// Whether level 1 has nodes in a column, or in a row, of level 0; they count from 1.
[[nodiscard]] constexpr bool is_on_level_1(std::int64_t position) noexcept {
  return (position - 1) % level_step == 0;
}

// What a level held before it was extended.
struct level_summary {
  std::int64_t valid_count = 0;
  float mean = 0.0F;  // single-precision sum of the valid nodes, the lowest row first, by count
};

// Writes all nodes of a level as those of the finer level that they coincide with, blanks among
// them, then extends it by `reach` nodes beyond the ends of its data.
level_summary build_level(LevelRows& finer, LevelRows& level, std::int32_t reach);

// The same for a grid whose data lie on even rows or columns, which level 1 would miss: a node
// without a value takes the mean of the valid cells within one cell of it.
level_summary build_widened_level(LevelRows& level_0, LevelRows& level_1, std::int32_t reach);

// The up to three rows of level 0 within one of a row, which may be one past the last.
[[nodiscard]] std::vector<std::span<const float>> rows_nearby(LevelRows& level_0, std::int64_t row);

// Mean of the valid cells of level 0 within one cell of a node of level 1, the dummy if none is.
//   rows    those near the node.
//   column  the node's column on level 0, from 1, which may be one past the last.
[[nodiscard]] float mean_nearby(std::span<const std::span<const float>> rows, std::int64_t column);

}  // namespace velmorankite
