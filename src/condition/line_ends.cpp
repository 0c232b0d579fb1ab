// SPDX-License-Identifier: MIT
#include "condition/line_ends.h"

#include <algorithm>

#include "grid/dummy.h"

namespace velmorankite {

line_ends::line_ends(std::int32_t x_count, std::int32_t y_count)
    : rows(static_cast<std::size_t>(y_count)), columns(static_cast<std::size_t>(x_count)) {}

void line_ends::note_row(std::int32_t row, std::span<const float> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (is_valid(cells[i])) {
      columns[i].note(row, cells[i]);
    }
  }
  line_end_pair& ends = rows[static_cast<std::size_t>(row - 1)];
  const auto first = std::ranges::find_if(cells, is_valid);
  const auto last = std::find_if(cells.rbegin(), cells.rend(), is_valid);
  if (first != cells.end()) {
    ends.note(static_cast<std::int32_t>(first - cells.begin() + 1), *first);
    ends.note(static_cast<std::int32_t>(cells.rend() - last), *last);
  }
}

}  // namespace velmorankite
