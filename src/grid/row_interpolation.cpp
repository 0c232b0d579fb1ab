// SPDX-License-Identifier: MIT
#include "grid/row_interpolation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "grid/catmull_rom.h"
#include "grid/dummy.h"

namespace velmorankite {
namespace {

// Brings every column to the row's Y, and tells which have all their four cells.
void evaluate_columns(const four_rows& rows, double fy, std::span<float> values,
                      std::span<std::int32_t> complete) {
  for (std::size_t c = 0; c < values.size(); ++c) {
    const float p = rows[0][c];
    const float q = rows[1][c];
    const float r = rows[2][c];
    const float s = rows[3][c];
    values[c] = column_value(p, q, r, s, fy);
    complete[c] = static_cast<std::int32_t>(is_valid(p)) & static_cast<std::int32_t>(is_valid(q)) &
                  static_cast<std::int32_t>(is_valid(r)) & static_cast<std::int32_t>(is_valid(s));
  }
}

// Makes complete[c] tell whether the four columns from c on are complete; says whether all are.
bool join_columns(std::span<std::int32_t> complete) {
  std::int32_t all = 1;
  for (std::size_t c = 0; c + 3 < complete.size(); ++c) {
    complete[c] &= complete[c + 1] & complete[c + 2] & complete[c + 3];
    all &= complete[c];
  }
  return all != 0;
}

// Values of all points from begin to end; those of points beside a hole are put right later.
void evaluate_points(const ColumnPlan& plan, std::span<const float> columns,
                     std::span<float> values) {
  const std::int32_t* const left = plan.left.data();
  const double* const fraction = plan.fraction.data();
  float* const value = values.data();
  if (plan.left_ascends) {
    const float* const first = columns.data() + left[plan.begin];
    for (std::size_t i = plan.begin; i < plan.end; ++i) {
      const float* const f = first + (i - plan.begin);
      value[i] = row_value(f[0], f[1], f[2], f[3], fraction[i]);
    }
    return;
  }
  for (std::size_t i = plan.begin; i < plan.end; ++i) {
    const float* const f = columns.data() + left[i];
    value[i] = row_value(f[0], f[1], f[2], f[3], fraction[i]);
  }
}

void fill_outside(const ColumnPlan& plan, std::span<float> values) {
  std::ranges::fill(values.first(plan.begin), dummy);
  std::ranges::fill(values.subspan(plan.end), dummy);
}

// Puts right the points outside, on a cell, on an empty one or beside a hole.
void take_one_by_one(const four_rows& rows, const ColumnPlan& plan, const AxisPlace& y,
                     std::span<const std::int32_t> complete, std::span<float> values) {
  const double y_distance = std::fabs(y.offset);
  const float* const nearest_row = y.nearest == y.base() ? rows[1] : rows[2];
  for (std::size_t i = plan.begin; i < plan.end; ++i) {
    if (plan.nearest[i] == ColumnPlan::outside) {
      values[i] = dummy;
      continue;
    }
    const float nearest = nearest_row[plan.nearest[i]];
    const std::int32_t left = plan.left[i];
    if (is_on_cell(plan.distance[i], y_distance) || !is_valid(nearest)) {
      values[i] = nearest;
    } else if (complete[static_cast<std::size_t>(left)] == 0) {
      const four_rows there = {rows[0] + left, rows[1] + left, rows[2] + left, rows[3] + left};
      values[i] = interpolate_patched(there, nearest, plan.fraction[i], y.fraction());
    }
  }
}

}  // namespace

void copy_nearest(const float* cells, const ColumnPlan& plan, std::span<float> values) {
  fill_outside(plan, values);
  if (plan.nearest_ascends && plan.all_inside) {
    std::copy_n(cells + plan.nearest[plan.begin], plan.end - plan.begin, &values[plan.begin]);
    return;
  }
  for (std::size_t i = plan.begin; i < plan.end; ++i) {
    values[i] = plan.nearest[i] == ColumnPlan::outside ? dummy : cells[plan.nearest[i]];
  }
}

void interpolate_row(const four_rows& rows, const ColumnPlan& plan, const AxisPlace& y,
                     RowScratch& scratch, std::span<float> values) {
  const auto width = static_cast<std::size_t>(plan.last_column - plan.first_column) + 1;
  scratch.column_values.make_room(width);
  scratch.complete.make_room(width);
  const std::span<float> columns = scratch.column_values.span().first(width);
  const std::span<std::int32_t> complete = scratch.complete.span().first(width);
  evaluate_columns(rows, y.fraction(), columns, complete);
  const bool all_complete = join_columns(complete);
  fill_outside(plan, values);
  evaluate_points(plan, columns, values);

  if (!all_complete || !plan.all_inside || is_on_cell(0.0, std::fabs(y.offset))) {
    take_one_by_one(rows, plan, y, complete, values);
  }
}

float interpolate_patched(const four_rows& rows, float nearest, double fx, double fy) {
  CellBlock block;
  for (std::size_t r = 0; r < rows.size(); ++r) {
    std::copy_n(rows[r], 4, block.f[r]);
  }
  patch_holes(block, nearest);
  float column[4];
  for (int c = 0; c < 4; ++c) {
    column[c] = column_value(block.f[0][c], block.f[1][c], block.f[2][c], block.f[3][c], fy);
  }
  return row_value(column[0], column[1], column[2], column[3], fx);
}

}  // namespace velmorankite
