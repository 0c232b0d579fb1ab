// SPDX-License-Identifier: MIT
#include "grid/column_plan.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace velmorankite {

void ColumnPlan::make(const GridAxis& axis, std::span<const double> x) {
  // Bit by bit, so that a row of NaN is found again too.
  if (x.size() == x_.size() &&
      (x.empty() || std::memcmp(x.data(), x_.data(), x.size_bytes()) == 0)) {
    return;
  }
  x_.assign(x.begin(), x.end());
  place(axis);
  survey();
}

// Columns of the grid at first: survey makes them cells of the stretch.
void ColumnPlan::place(const GridAxis& axis) {
  const std::size_t count = x_.size();
  left.resize(count);
  nearest.resize(count);
  fraction.resize(count);
  distance.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    const AxisPlace at = axis.place(x_[i]);
    left[i] = at.base() - 1;
    nearest[i] = axis.contains(x_[i]) ? at.nearest : outside;
    fraction[i] = at.fraction();
    distance[i] = std::fabs(at.offset);
  }
}

void ColumnPlan::survey() {
  const auto is_inside = [](std::int32_t column) { return column != outside; };
  begin = static_cast<std::size_t>(std::ranges::find_if(nearest, is_inside) - nearest.begin());
  end = nearest.size();
  while (end > begin && !is_inside(nearest[end - 1])) {
    --end;
  }
  furthest = 0.0;
  all_inside = left_ascends = nearest_ascends = true;
  if (begin == end) {
    return;
  }
  first_column = left[begin];
  last_column = left[begin] + 3;
  for (std::size_t i = begin; i < end; ++i) {
    if (!is_inside(nearest[i])) {
      all_inside = false;
      left[i] = left[begin];
      continue;
    }
    first_column = std::min(first_column, left[i]);
    last_column = std::max(last_column, left[i] + 3);
    furthest = std::max(furthest, distance[i]);
  }
  for (std::size_t i = begin; i < end; ++i) {
    left[i] -= first_column;
    nearest[i] = is_inside(nearest[i]) ? nearest[i] - first_column : outside;
  }
  for (std::size_t i = begin + 1; i < end; ++i) {
    left_ascends = left_ascends && left[i] == left[i - 1] + 1;
    nearest_ascends = nearest_ascends && nearest[i] == nearest[i - 1] + 1;
  }
}

}  // namespace velmorankite
