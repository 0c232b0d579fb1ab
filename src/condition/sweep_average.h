// The weighted mean by which a sweep fills a cell.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "grid/dummy.h"

namespace velmorankite {

// Weights of the 5 by 5 cells round a cell, row by row: 2^-(|a| + |b|) at a columns and b rows from
// it, lifted towards 1 as `lift` goes from 0 to 1.
struct sweep_weights {
  explicit sweep_weights(float lift) {
    constexpr std::array<float, 5> steps{0.25F, 0.5F, 1.0F, 0.5F, 0.25F};  // exact in products
    for (std::size_t b = 0; b < 5; ++b) {
      for (std::size_t a = 0; a < 5; ++a) {
        const float base = steps[a] * steps[b];
        at[b][a] = lift * (1.0F - base) + base;
      }
    }
  }

  std::array<std::array<float, 5>, 5> at{};
};

// The rows round a cell in the order in which the sweep meets them, the cell's own in the middle.
using sweep_window = std::array<const float*, 5>;

struct local_sum {
  float values = 0.0F;
  float weights = 0.0F;
  std::int32_t neighbours = 0;  // valid cells among the eight nearest, and the cell itself if taken

  // A blank adds -0, which leaves any sum as it is, so that no sum waits for a comparison.
  void take(float value, float weight, bool nearest) noexcept {
    const bool valid = is_valid(value);
    values += valid ? weight * value : -0.0F;
    weights += valid ? weight : -0.0F;
    neighbours += valid && nearest ? 1 : 0;
  }
};

// Adds the valid ones of the 24 cells round a cell, from 0, of rows of x_count cells: row by row,
// in single precision.
inline void add_around(const sweep_window& window, std::int32_t column, std::int32_t x_count,
                       const sweep_weights& weights, local_sum& sum) noexcept {
  const auto add = [&](std::size_t b, std::int32_t a) {
    if (a != 2 || b != 2) {
      const bool nearest = a >= 1 && a <= 3 && b >= 1 && b <= 3;
      sum.take(window[b][column + a - 2], weights.at[b][static_cast<std::size_t>(a)], nearest);
    }
  };
  if (column >= 2 && column + 2 < x_count) {
    for (std::size_t b = 0; b < 5; ++b) {
      for (std::int32_t a = 0; a < 5; ++a) {
        add(b, a);
      }
    }
    return;
  }
  const std::int32_t first = std::max(0, 2 - column);
  const std::int32_t last = std::min(4, x_count + 1 - column);
  for (std::size_t b = 0; b < 5; ++b) {
    for (std::int32_t a = first; a <= last; ++a) {
      add(b, a);
    }
  }
}

}  // namespace velmorankite
