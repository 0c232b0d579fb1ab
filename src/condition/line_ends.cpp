// SPDX-License-Identifier: MIT
#include "condition/line_ends.h"

#include "grid/dummy.h"

namespace velmorankite {

line_ends::line_ends(std::int32_t x_count, std::int32_t y_count)
    : rows(static_cast<std::size_t>(y_count)), columns(static_cast<std::size_t>(x_count)) {}

void line_ends::note_row(std::int32_t row, std::span<const float> cells) {
  line_end_pair& ends = rows[static_cast<std::size_t>(row - 1)];
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (is_valid(cells[i])) {
      ends.note(static_cast<std::int32_t>(i + 1), cells[i]);
      columns[i].note(row, cells[i]);
    }
  }
}

}  // namespace velmorankite
