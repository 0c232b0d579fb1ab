// SPDX-License-Identifier: MIT
#include "formats/description_checks.h"

#include <cmath>
#include <limits>

#include "formats/header_status.h"
#include "formats/stored_lines.h"

namespace velmorankite {
namespace {

// A stored zero that went through DECODE_VULCAN_BINARY is a denormal number, and no cell size.
bool is_cell_size(double value) {
  return std::isnormal(value) && value > 0.0;
}

}  // namespace

Status check_description(const grid_description& grid) {
  const grid_ints& ints = grid.ints;
  const grid_reals& reals = grid.reals;
  const stored_lines lines = stored_lines_of(ints);
  constexpr std::int64_t longest_line = std::numeric_limits<std::int32_t>::max();
  if (ints.x_count < 1 || ints.y_count < 1 || lines.stride > longest_line) {
    return counts_unsound;
  }
  if (!is_cell_size(reals.x_cell) || !is_cell_size(reals.y_cell)) {
    return cell_size_unsound;
  }
  for (const double limit : {reals.x_min, reals.x_max, reals.y_min, reals.y_max}) {
    if (!std::isfinite(limit)) {
      return limits_unsound;
    }
  }
  return ints.data_offset < 0 ? pointer_outside : success;
}

}  // namespace velmorankite
