// SPDX-License-Identifier: MIT
#include "formats/cell_statistics.h"

#include "grid/dummy.h"

namespace velmorankite {

// Not in line: among other work a compiler runs out of registers, and a sum that is kept in memory
// takes twice the time.
void CellStatistics::add(std::span<const float> cells) noexcept {
  const float infinity = std::numeric_limits<float>::infinity();
  std::int32_t count = 0;
  float lowest = infinity;
  float highest = -infinity;
  double sum = sum_;
  double squares = squares_;
  for (const float value : cells) {
    const bool valid = is_valid(value);
    const double counted = valid ? static_cast<double>(value) : 0.0;
    count += valid ? 1 : 0;
    lowest = std::min(lowest, valid ? value : infinity);
    highest = std::max(highest, valid ? value : -infinity);
    sum += counted;
    squares += counted * counted;
  }
  valid_count_ += count;
  dummy_count_ += std::ssize(cells) - count;
  lowest_ = std::min(lowest_, lowest);
  highest_ = std::max(highest_, highest);
  sum_ = sum;
  squares_ = squares;
}

}  // namespace velmorankite
