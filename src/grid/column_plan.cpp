// SPDX-License-Identifier: MIT
#include "grid/column_plan.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace velmorankite {
namespace {

// The loops below run over plain pointers and local values, and without branches: so the compiler
// can take several points at once.

bool ascends(const std::int32_t* columns, std::size_t count) noexcept {
  std::int32_t other_steps = 0;
  for (std::size_t i = 1; i < count; ++i) {
    other_steps |= (columns[i] - columns[i - 1]) ^ 1;
  }
  return other_steps == 0;
}

constexpr bool is_inside(std::int32_t column) noexcept {
  return column != ColumnPlan::outside;
}

}  // namespace

void ColumnPlan::make(const GridAxis& axis, std::span<const double> x) {
  // Bit by bit, so that a row of NaN is found again too.
  if (x.size() == count_ && (x.empty() || std::memcmp(x.data(), x_.data(), x.size_bytes()) == 0)) {
    return;
  }
  count_ = 0;  // stays so if memory runs out
  for (platform::LargeArray<double>* array : {&x_, &fraction, &distance}) {
    array->make_room(x.size());
  }
  left.make_room(x.size());
  nearest.make_room(x.size());
  count_ = x.size();
  std::ranges::copy(x, x_.begin());
  place_all(axis);
  survey();
}

// Columns are those of the grid here; survey counts them from the stretch.
void ColumnPlan::place_all(const GridAxis axis) {
  const double* const x = x_.data();
  std::int32_t* const left_of = left.data();
  std::int32_t* const nearest_to = nearest.data();
  double* const fraction_of = fraction.data();
  double* const distance_of = distance.data();
  for (std::size_t i = 0; i < count_; ++i) {
    const AxisPlace at = axis.place(x[i]);
    left_of[i] = at.base() - 1;
    nearest_to[i] = axis.contains(x[i]) ? at.nearest : outside;
    fraction_of[i] = at.fraction();
    distance_of[i] = std::fabs(at.offset);
  }
}

void ColumnPlan::survey() {
  begin = 0;
  while (begin < count_ && !is_inside(nearest[begin])) {
    ++begin;
  }
  end = count_;
  while (end > begin && !is_inside(nearest[end - 1])) {
    --end;
  }
  if (begin < end) {
    count_from_stretch();
    left_ascends = ascends(&left[begin], end - begin);
    nearest_ascends = ascends(&nearest[begin], end - begin);
  }
}

void ColumnPlan::count_from_stretch() {
  std::int32_t* const left_of = &left[begin];
  std::int32_t* const nearest_to = &nearest[begin];
  const double* const distance_of = &distance[begin];
  const std::size_t count = end - begin;
  std::int32_t lowest = left_of[0];
  std::int32_t highest = left_of[0];
  std::int32_t left_out = 0;
  double largest = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    lowest = std::min(lowest, left_of[i]);
    highest = std::max(highest, left_of[i]);
    left_out += static_cast<std::int32_t>(!is_inside(nearest_to[i]));
    largest = std::max(largest, distance_of[i]);
  }
  for (std::size_t i = 0; i < count; ++i) {
    left_of[i] -= lowest;
    nearest_to[i] = is_inside(nearest_to[i]) ? nearest_to[i] - lowest : outside;
  }
  first_column = lowest;
  last_column = highest + 3;
  all_inside = left_out == 0;
  largest_distance = largest;
}

}  // namespace velmorankite
