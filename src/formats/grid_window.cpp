// SPDX-License-Identifier: MIT
#include "formats/grid_window.h"

#include <algorithm>

namespace velmorankite {
namespace {

// One axis of a grid.
struct axis_limits {
  double lowest;
  double highest;
  double cell;
  std::int32_t count;

  // The cell at a limit or, between two, the lower one.
  [[nodiscard]] std::int32_t cell_at(double limit) const {
    const double index = (limit - lowest) / cell + 1.0;
    return static_cast<std::int32_t>(std::clamp(index, 1.0, static_cast<double>(count)));
  }
};

std::optional<kept_cells> keep(const axis_limits& axis, double start, double end,
                               std::int32_t step) {
  if (!(start < axis.highest) || !(end > axis.lowest)) {
    return std::nullopt;
  }
  const double margin = static_cast<double>(0.001F) * axis.cell;
  kept_cells kept{1, axis.count, step};
  if (start > axis.lowest + margin) {
    kept.first = axis.cell_at(start);
  }
  if (end < axis.highest - margin) {
    kept.last = axis.cell_at(end);
  }
  if (kept.last < kept.first) {
    return std::nullopt;
  }
  kept.last -= (kept.last - kept.first) % step;
  return kept;
}

}  // namespace

std::optional<kept_window> keep_window(const grid_description& grid, grid_window& window) {
  const grid_ints& ints = grid.ints;
  const grid_reals& reals = grid.reals;
  if (window.x_step < 1 || window.y_step < 1) {
    window = {reals.x_min, reals.x_max, 1, reals.y_min, reals.y_max, 1};
    return kept_window{{1, ints.x_count, 1}, {1, ints.y_count, 1}};
  }
  const auto columns = keep({reals.x_min, reals.x_max, reals.x_cell, ints.x_count}, window.x_start,
                            window.x_end, window.x_step);
  const auto rows = keep({reals.y_min, reals.y_max, reals.y_cell, ints.y_count}, window.y_start,
                         window.y_end, window.y_step);
  if (!columns || !rows) {
    return std::nullopt;
  }
  return kept_window{*columns, *rows};
}

Lattice kept_lattice(const grid_description& grid, const kept_window& kept) noexcept {
  const grid_reals& reals = grid.reals;
  return {(kept.columns.first - 1) * reals.x_cell + reals.x_min,
          (kept.rows.first - 1) * reals.y_cell + reals.y_min,
          kept.columns.step * reals.x_cell,
          kept.rows.step * reals.y_cell,
          kept.columns.count(),
          kept.rows.count()};
}

}  // namespace velmorankite
