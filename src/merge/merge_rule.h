// The merge rule: which grid a cell of the output comes from, how the two are blended at the seam
// and how the adjusted grid is moved onto the other.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

namespace velmorankite {

// How the adjusted grid reaches the level of the one that stays.
struct levelling {
  std::int32_t adjusted_grid = 1;  // 0: grid 1 is moved, 1: grid 2 is moved
  float offset = 0.0F;             // mean of grid 1 minus grid 2 along the seam
};

// What is known of one cell of the output.
struct merge_cell {
  float grid_1;      // resampled onto the output lattice; a value that is not valid is no data
  float grid_2;      // the same
  float correction;  // drifting part of the mismatch; counts as 0 where it is not valid
  bool in_window;    // the three values below exist only in the working window
  float weight;      // of the seam band, the dummy outside it
  float filled_1;    // the grids without holes
  float filled_2;
};

// The value of one output cell, the dummy where it has none.
[[nodiscard]] float merged_value(const merge_cell& cell, const levelling& level) noexcept;

// A stretch of neighbouring cells in one row; all spans have the same length.
struct merge_stretch {
  std::span<float> grid_1;  // replaced by the merged values
  std::span<const float> grid_2;
  std::span<const float> correction;
};

// The same stretch in the working window.
struct window_stretch {
  std::span<const float> weight;
  std::span<const float> filled_1;
  std::span<const float> filled_2;
};

// merged_value for a stretch of cells outside the window, and for one inside it. The second gives
// the number of cells in which both grids were blended.
void merge_outside(const merge_stretch& cells, const levelling& level) noexcept;
std::int64_t merge_inside(const merge_stretch& cells, const window_stretch& window,
                          const levelling& level) noexcept;

}  // namespace velmorankite
