// The part of a grid that a conversion keeps.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <optional>

#include "formats/grid_description.h"
#include "grid/lattice.h"

namespace velmorankite {

// Limits in map units, and steps: every so many columns and rows are kept. A step below 1 asks for
// the whole grid.
struct grid_window {
  double x_start = 0.0;
  double x_end = 0.0;
  std::int32_t x_step = 0;
  double y_start = 0.0;
  double y_end = 0.0;
  std::int32_t y_step = 0;
};

// Cells kept along one axis, counted from 1 at the lowest coordinate.
struct kept_cells {
  std::int32_t first = 1;
  std::int32_t last = 1;
  std::int32_t step = 1;

  [[nodiscard]] std::int32_t count() const noexcept { return (last - first) / step + 1; }
  [[nodiscard]] bool has(std::int32_t cell) const noexcept {
    return cell >= first && cell <= last && (cell - first) % step == 0;
  }
};

struct kept_window {
  kept_cells columns;
  kept_cells rows;
};

// Finds the cells of a window; a whole grid's limits and steps of 1 are put into `window`. A limit
// within a thousandth of a cell of the grid's own counts as that, others go down to a cell.
// Nothing if the window lies outside the grid or holds no cell.
[[nodiscard]] std::optional<kept_window> keep_window(const grid_description& grid,
                                                     grid_window& window);

// The lattice of the cells that are kept.
[[nodiscard]] Lattice kept_lattice(const grid_description& grid, const kept_window& kept) noexcept;

}  // namespace velmorankite
