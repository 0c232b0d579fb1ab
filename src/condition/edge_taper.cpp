// SPDX-License-Identifier: MIT
#include "condition/edge_taper.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmorankite {
namespace {

constexpr float pi_single = 3.14159250F;

float towards(float value, float level, float factor) {
  return (value - level) * factor + level;
}

}  // namespace

std::vector<float> taper_factors(std::int32_t pad, std::int32_t taper_width) {
  const std::int32_t width = std::max(pad - taper_width + 4, taper_width);
  std::vector<float> factors(static_cast<std::size_t>(std::max(width, 1)), 0.0F);
  for (std::size_t i = 1; i < factors.size(); ++i) {
    const float angle = pi_single * static_cast<float>(i) / static_cast<float>(width);
    factors[i] = (1.0F - std::cos(angle)) / 2.0F;
  }
  return factors;
}

void taper_row(std::span<float> cells, std::int32_t row, std::int32_t row_count,
               std::span<const float> column_factors, std::span<const float> row_factors,
               float level) {
  // On a grid narrower than both tapers a cell takes both factors, one after the other.
  const std::size_t reach = std::min(column_factors.size(), cells.size());
  for (std::size_t i = 0; i < reach; ++i) {
    cells[i] = towards(cells[i], level, column_factors[i]);
    float& opposite = cells[cells.size() - 1 - i];
    opposite = towards(opposite, level, column_factors[i]);
  }
  const auto width = static_cast<std::int32_t>(row_factors.size());
  std::int32_t place = 0;  // from 1 within the taper of the rows
  if (row <= width) {
    place = row;
  } else if (row >= row_count - width + 1) {
    place = row_count - row + 1;
  }
  if (place > 0) {
    const float factor = row_factors[static_cast<std::size_t>(place - 1)];
    for (float& cell : cells) {
      cell = towards(cell, level, factor);
    }
  }
}

}  // namespace velmorankite
