// SPDX-License-Identifier: MIT
#include "condition/level_build.h"

#include <algorithm>
#include <functional>
#include <span>
#include <vector>

#include "condition/level_edges.h"
#include "condition/level_interpolation.h"
#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

VELMORANKITE_VECTOR_CLONES std::int32_t count_valid(const float* cells, std::size_t count) {
  std::int32_t valid = 0;
  for (std::size_t i = 0; i < count; ++i) {
    valid += is_valid(cells[i]) ? 1 : 0;
  }
  return valid;
}

// The single precision and the order are part of the mean.
float add_valid(float sum, std::span<const float> cells) {
  for (const float value : cells) {
    sum += is_valid(value) ? value : 0.0F;
  }
  return sum;
}

using row_maker = std::function<void(std::int32_t row, std::span<float> cells)>;

level_summary build_rows(LevelRows& level, std::int32_t reach, const row_maker& make) {
  std::int64_t count = 0;
  float sum = 0.0F;
  LevelEdges edges(level.lattice(), reach);
  for (std::int32_t j = 1; j <= level.lattice().y_count; ++j) {
    const std::span<float> cells = level.fresh_row(j);
    make(j, cells);
    count += count_valid(cells.data(), cells.size());
    sum = add_valid(sum, cells);
    edges.record(j, cells);
    level.keep(j);
  }
  edges.extend(level);
  return {count, count > 0 ? sum / static_cast<float>(count) : 0.0F};
}

// Gives the blank nodes of a row of level 1 the mean of the cells near them.
void widen_row(LevelRows& level_0, std::int32_t row, std::span<float> cells) {
  const auto nearby = rows_nearby(level_0, level_step * (row - 1) + 1);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!is_valid(cells[i])) {
      cells[i] = mean_nearby(nearby, level_step * static_cast<std::int64_t>(i) + 1);
    }
  }
}

}  // namespace

std::vector<std::span<const float>> rows_nearby(LevelRows& level_0, std::int64_t row) {
  std::vector<std::span<const float>> nearby;
  const std::int64_t last = std::min<std::int64_t>(row + 1, level_0.lattice().y_count);
  for (std::int64_t r = std::max<std::int64_t>(row - 1, 1); r <= last; ++r) {
    nearby.emplace_back(level_0.row(static_cast<std::int32_t>(r)));
  }
  return nearby;
}

float mean_nearby(std::span<const std::span<const float>> rows, std::int64_t column) {
  double sum = 0.0;
  int count = 0;
  for (const std::span<const float> cells : rows) {
    const auto last = std::min(column + 1, static_cast<std::int64_t>(cells.size()));
    for (std::int64_t c = std::max<std::int64_t>(column - 1, 1); c <= last; ++c) {
      const float value = cells[static_cast<std::size_t>(c - 1)];
      if (is_valid(value)) {
        sum += static_cast<double>(value);
        ++count;
      }
    }
  }
  return count > 0 ? static_cast<float>(sum / count) : dummy;
}

level_summary build_level(LevelRows& finer, LevelRows& level, std::int32_t reach) {
  LevelInterpolation decimation(level.lattice(), finer);
  return build_rows(level, reach,
                    [&](std::int32_t row, std::span<float> cells) { decimation.row(row, cells); });
}

level_summary build_widened_level(LevelRows& level_0, LevelRows& level_1, std::int32_t reach) {
  LevelInterpolation decimation(level_1.lattice(), level_0);
  return build_rows(level_1, reach, [&](std::int32_t row, std::span<float> cells) {
    decimation.row(row, cells);
    widen_row(level_0, row, cells);
  });
}

}  // namespace velmorankite
