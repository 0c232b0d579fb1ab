// SPDX-License-Identifier: MIT
#include "condition/sweep_front.h"

#include <algorithm>

namespace velmorankite {

SweepFront::SweepFront(GapTables& tables)
    : tables_(tables), rows_(static_cast<std::size_t>(tables.y_count) + 1) {
  std::size_t number = 0;
  for (std::int32_t row = 1; row <= tables_.y_count; ++row) {
    for (const cell_run& gap : tables_.row_gaps.of(row)) {
      if (tables_.row_gap_exterior[number++] == 0) {
        list_gap(gap, row);
      }
    }
  }
}

// An enclosed gap has a row on either side.
void SweepFront::list_gap(const cell_run& gap, std::int32_t row) {
  list_end(gap.first, row, mask_left_end);
  list_end(gap.last, row, mask_right_end);
  for (std::int32_t column = gap.first + 1; column < gap.last; ++column) {
    if (tables_.mask_at(column, row - 1) == mask_data ||
        tables_.mask_at(column, row + 1) == mask_data) {
      list_enclosed(column, row);
    }
  }
}

void SweepFront::take_in_exterior() {
  exterior_ = true;
  std::size_t number = 0;
  for (std::int32_t row = 1; row <= tables_.y_count; ++row) {
    for (const cell_run& gap : tables_.row_gaps.of(row)) {
      if (tables_.row_gap_exterior[number++] != 0) {
        list_exterior_gap(gap, row);
      }
    }
  }
}

void SweepFront::list_exterior_gap(const cell_run& gap, std::int32_t row) {
  for (std::int32_t column = gap.first; column <= gap.last; ++column) {
    if (is_smoothed(tables_.mask_at(column, row))) {
      of_row(row).push_back(column);
    } else if (touches_values(column, row)) {
      list_exterior(column, row);
    }
  }
}

bool SweepFront::touches_values(std::int32_t column, std::int32_t row) const {
  for (std::int32_t r = std::max(row - 1, 1); r <= std::min(row + 1, tables_.y_count); ++r) {
    for (std::int32_t c = std::max(column - 1, 1); c <= std::min(column + 1, tables_.x_count);
         ++c) {
      const std::int8_t mask = tables_.mask_at(c, r);
      if (mask == mask_data || is_smoothed(mask)) {
        return true;
      }
    }
  }
  return false;
}

void SweepFront::list_end(std::int32_t column, std::int32_t row, std::int8_t end) {
  std::int8_t& mask = tables_.mask_at(column, row);
  list_enclosed(column, row);
  if (mask >= mask_enclosed_listed) {
    mask = static_cast<std::int8_t>(mask | end);
  }
}

void SweepFront::list_enclosed(std::int32_t column, std::int32_t row) {
  std::int8_t& mask = tables_.mask_at(column, row);
  if (mask == mask_enclosed) {
    mask = mask_enclosed_listed;
    of_row(row).push_back(column);
  }
}

void SweepFront::list_exterior(std::int32_t column, std::int32_t row) {
  std::int8_t& mask = tables_.mask_at(column, row);
  if (mask == mask_exterior) {
    mask = mask_exterior_listed;
    of_row(row).push_back(column);
  }
}

void SweepFront::note_filled(std::int32_t column, std::int32_t row, std::int8_t before) {
  if (is_enclosed(before)) {
    const int ends = before - mask_enclosed_listed;
    if ((ends & mask_left_end) != 0) {
      list_end(column + 1, row, mask_left_end);
    }
    if ((ends & mask_right_end) != 0) {
      list_end(column - 1, row, mask_right_end);
    }
    // The row ahead of the sweep sees it in this pass, the row behind in the next.
    list_enclosed(column, row - 1);
    list_enclosed(column, row + 1);
  }
  if (!exterior_) {
    return;
  }
  for (std::int32_t r = std::max(row - 1, 1); r <= std::min(row + 1, tables_.y_count); ++r) {
    for (std::int32_t c = std::max(column - 1, 1); c <= std::min(column + 1, tables_.x_count);
         ++c) {
      list_exterior(c, r);
    }
  }
}

}  // namespace velmorankite
