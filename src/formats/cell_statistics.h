// Statistics of the cells of a grid as they pass by.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

namespace velmorankite {

class CellStatistics {
 public:
  // Sums run in double precision, cell after cell.
  void add(std::span<const float> cells) noexcept;

  [[nodiscard]] std::int64_t valid_count() const noexcept { return valid_count_; }
  [[nodiscard]] std::int64_t dummy_count() const noexcept { return dummy_count_; }
  // Meaningless without a valid cell, as are mean and deviation.
  [[nodiscard]] float lowest() const noexcept { return lowest_; }
  [[nodiscard]] float highest() const noexcept { return highest_; }
  [[nodiscard]] double mean() const noexcept { return sum_ / static_cast<double>(valid_count_); }
  // 0 where the squares of the values are beyond telling.
  [[nodiscard]] double deviation() const noexcept {
    constexpr auto largest_mean = static_cast<double>(1.0E18F);
    if (!(std::abs(mean()) < largest_mean)) {
      return 0.0;
    }
    return std::sqrt(std::max(0.0, squares_ / static_cast<double>(valid_count_) - mean() * mean()));
  }

 private:
  std::int64_t valid_count_ = 0;
  std::int64_t dummy_count_ = 0;
  float lowest_ = std::numeric_limits<float>::infinity();
  float highest_ = -std::numeric_limits<float>::infinity();
  double sum_ = 0.0;
  double squares_ = 0.0;
};

}  // namespace velmorankite
