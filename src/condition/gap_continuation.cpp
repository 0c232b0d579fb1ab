// SPDX-License-Identifier: MIT
#include "condition/gap_continuation.h"

#include <cmath>
#include <vector>

#include "condition/sweep_front.h"
#include "grid/dummy.h"

namespace velmorankite {
namespace {

constexpr std::int32_t longest_untouched = 3;  // cells of a gap that is left to the means

float continued(float p, float q) {
  const float value = 2.0F * p - q;
  return is_valid(q) && is_valid(value) && std::isfinite(value) ? value : p;
}

class Continuation {
 public:
  Continuation(LevelRows& rows, GapTables& tables, std::int8_t age)
      : rows_(rows), tables_(tables), age_(age) {
    for (std::int32_t column = 1; column <= tables_.x_count; ++column) {
      current_.push_back(tables_.column_gaps.number(column));
    }
  }

  std::int64_t run() {
    for (std::int32_t row = 1; row <= tables_.y_count; ++row) {
      const std::int64_t before = count_;
      cells_ = rows_.row(row);
      along_row(row);
      for (std::int32_t column = 1; column <= tables_.x_count; ++column) {
        along_column(column, row);
      }
      if (count_ != before) {
        rows_.keep(row);
      }
    }
    return count_;
  }

 private:
  [[nodiscard]] float& cell(std::int32_t column) const {
    return cells_[static_cast<std::size_t>(column - 1)];
  }

  void put(std::int32_t column, std::int32_t row, float value) {
    cell(column) = value;
    tables_.mask_at(column, row) = age_;
    ++count_;
  }

  void along_row(std::int32_t row) {
    std::size_t number = tables_.row_gaps.number(row);
    for (const cell_run& gap : tables_.row_gaps.of(row)) {
      if (tables_.row_gap_exterior[number++] == 0 || gap.length() <= longest_untouched) {
        continue;
      }
      if (gap.first > 2) {
        put(gap.first, row, continued(cell(gap.first - 1), cell(gap.first - 2)));
      }
      if (gap.last <= tables_.x_count - 2) {
        put(gap.last, row, continued(cell(gap.last + 1), cell(gap.last + 2)));
      }
    }
  }

  // The rows behind have their continuation, the rows ahead not yet.
  void along_column(std::int32_t column, std::int32_t row) {
    std::size_t& number = current_[static_cast<std::size_t>(column - 1)];
    const std::size_t end = tables_.column_gaps.number(column + 1);
    while (number < end && tables_.column_gaps.all()[number].last < row) {
      ++number;
    }
    if (number == end || tables_.column_gap_exterior[number] == 0 ||
        is_smoothed(tables_.mask_at(column, row))) {
      return;
    }
    const cell_run gap = tables_.column_gaps.all()[number];
    if (gap.length() <= longest_untouched) {
      return;
    }
    const auto continue_from = [&](std::int32_t p, std::int32_t q) {
      const auto index = static_cast<std::size_t>(column - 1);
      put(column, row, continued(rows_.row(p)[index], rows_.row(q)[index]));
    };
    if (row == gap.first && row > 2) {
      continue_from(row - 1, row - 2);
    } else if (row == gap.last && row <= tables_.y_count - 2) {
      continue_from(row + 1, row + 2);
    }
  }

  LevelRows& rows_;
  GapTables& tables_;
  std::int8_t age_;
  std::span<float> cells_;
  std::vector<std::size_t> current_;  // by column, its first gap that has not ended
  std::int64_t count_ = 0;
};

}  // namespace

std::int64_t continue_into_gaps(LevelRows& rows, GapTables& tables, std::int8_t age) {
  return Continuation(rows, tables, age).run();
}

}  // namespace velmorankite
