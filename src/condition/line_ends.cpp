// SPDX-License-Identifier: MIT
#include "condition/line_ends.h"

#include <algorithm>
#include <cstddef>

#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// Notes the columns that begin in this row; gives their number.
VELMORANKITE_VECTOR_CLONES std::size_t note_first(const float* cells, std::size_t count,
                                                  std::int32_t row, std::int32_t* first,
                                                  float* value) {
  std::int32_t begun = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const bool begins = is_valid(cells[i]) & (first[i] == 0);
    first[i] = begins ? row : first[i];
    value[i] = begins ? cells[i] : value[i];
    begun += begins ? 1 : 0;
  }
  return static_cast<std::size_t>(begun);
}

VELMORANKITE_VECTOR_CLONES void note_last(const float* cells, std::size_t count, std::int32_t row,
                                          std::int32_t* last, float* value) {
  for (std::size_t i = 0; i < count; ++i) {
    const bool valid = is_valid(cells[i]);
    last[i] = valid ? row : last[i];
    value[i] = valid ? cells[i] : value[i];
  }
}

}  // namespace

line_ends::line_ends(std::int32_t x_count, std::int32_t y_count)
    : rows_(static_cast<std::size_t>(y_count)),
      first_(static_cast<std::size_t>(x_count), 0),
      last_(first_),
      first_value_(first_.size(), 0.0F),
      last_value_(first_value_) {}

void line_ends::note_row(std::int32_t row, std::span<const float> cells) {
  if (begun_ < first_.size()) {
    begun_ += note_first(cells.data(), first_.size(), row, first_.data(), first_value_.data());
  }
  note_last(cells.data(), last_.size(), row, last_.data(), last_value_.data());
  line_end_pair& ends = rows_[static_cast<std::size_t>(row - 1)];
  const auto first = std::ranges::find_if(cells, is_valid);
  const auto last = std::find_if(cells.rbegin(), cells.rend(), is_valid);
  if (first != cells.end()) {
    ends = {static_cast<std::int32_t>(first - cells.begin() + 1),
            static_cast<std::int32_t>(cells.rend() - last), *first, *last};
  }
}

void line_ends::drop_single_cells() {
  for (line_end_pair& pair : rows_) {
    if (!pair.spans()) {
      pair = {};
    }
  }
}

line_end_pair line_ends::column(std::int32_t column) const {
  const auto i = static_cast<std::size_t>(column - 1);
  return {first_[i], last_[i], first_value_[i], last_value_[i]};
}

}  // namespace velmorankite
