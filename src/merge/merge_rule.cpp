// SPDX-License-Identifier: MIT
#include "merge/merge_rule.h"

#include <cstddef>

#include "grid/dummy.h"
#include "merge/choose.h"
#include "merge/sieve/blend_weights.h"

namespace velmorankite {
namespace {

constexpr float counted(float correction) noexcept {
  return is_valid(correction) ? correction : 0.0F;
}

// A value of grid 1 or 2 on the level of the grid that stays. The sums run from left to right in
// single precision.
template <int adjusted_grid>
float levelled_1(float value, float offset, float correction) noexcept {
  return adjusted_grid == 0 ? value - offset - correction : value;
}

template <int adjusted_grid>
float levelled_2(float value, float offset, float correction) noexcept {
  return adjusted_grid == 0 ? value : value + offset + correction;
}

// The rule in the words in which it is told.
template <int adjusted_grid>
float plain_value(const merge_cell& cell, float offset) noexcept {
  const float correction = counted(cell.correction);
  const auto from_1 = [=](float v) { return levelled_1<adjusted_grid>(v, offset, correction); };
  const auto from_2 = [=](float v) { return levelled_2<adjusted_grid>(v, offset, correction); };
  const bool has_1 = is_valid(cell.grid_1);
  if (!has_1 && !is_valid(cell.grid_2)) {
    return dummy;
  }
  if (!cell.in_window) {
    return has_1 ? cell.grid_1 : from_2(cell.grid_2);
  }
  const float w = cell.weight;
  if (!is_valid(w)) {  // off the seam band
    return has_1 ? from_1(cell.grid_1) : from_2(cell.grid_2);
  }
  if (is_valid(cell.filled_1) && is_valid(cell.filled_2)) {
    if (w >= 0.0F) {
      return from_1(cell.filled_1) * w + from_2(cell.filled_2) * (1.0F - w);
    }
    if (w == weight_grid_2) {
      return from_2(cell.filled_2);
    }
    return has_1 ? from_1(cell.grid_1) : dummy;
  }
  if (has_1) {
    return w == weight_grid_2 ? dummy : from_1(cell.grid_1);
  }
  return w == weight_grid_1 ? dummy : from_2(cell.grid_2);
}

// The same outside the window and inside it, with every alternative worked out and then chosen
// from, so that the cells of a stretch go through several at a time.
template <int adjusted_grid>
float value_outside(float grid_1, float grid_2, float correction, float offset) noexcept {
  const float from_2 = levelled_2<adjusted_grid>(grid_2, offset, counted(correction));
  return choose(is_valid(grid_1), grid_1, choose(is_valid(grid_2), from_2, dummy));
}

template <int adjusted_grid>
float value_inside(const merge_cell& cell, float offset) noexcept {
  const float correction = choose(is_valid(cell.correction), cell.correction, 0.0F);
  const float w = cell.weight;
  const bool has_1 = is_valid(cell.grid_1);
  const float from_1 = levelled_1<adjusted_grid>(cell.grid_1, offset, correction);
  const float from_2 = levelled_2<adjusted_grid>(cell.grid_2, offset, correction);
  const float smooth_1 = levelled_1<adjusted_grid>(cell.filled_1, offset, correction);
  const float smooth_2 = levelled_2<adjusted_grid>(cell.filled_2, offset, correction);
  const float blend = smooth_1 * w + smooth_2 * (1.0F - w);

  const float either = choose(has_1, from_1, from_2);
  const float wrong_side = choose(has_1, weight_grid_2, weight_grid_1);
  const float without_filled = choose(w == wrong_side, dummy, either);
  const float off_blend = choose(w == weight_grid_2, smooth_2, choose(has_1, from_1, dummy));
  const float with_filled = choose(w >= 0.0F, blend, off_blend);
  const bool filled = is_valid(cell.filled_1) & is_valid(cell.filled_2);
  const float chosen = choose(is_valid(w), choose(filled, with_filled, without_filled), either);
  return choose(has_1 | is_valid(cell.grid_2), chosen, dummy);
}

template <int adjusted_grid>
void stretch_outside(const merge_stretch& cells, float offset) noexcept {
  float* const out = cells.grid_1.data();
  const float* const grid_2 = cells.grid_2.data();
  const float* const correction = cells.correction.data();
  for (std::size_t i = 0; i < cells.grid_1.size(); ++i) {
    out[i] = value_outside<adjusted_grid>(out[i], grid_2[i], correction[i], offset);
  }
}

template <int adjusted_grid>
std::int64_t stretch_inside(const merge_stretch& cells, const window_stretch& window,
                            float offset) noexcept {
  float* const out = cells.grid_1.data();
  const float* const grid_2 = cells.grid_2.data();
  const float* const correction = cells.correction.data();
  const float* const weight = window.weight.data();
  const float* const filled_1 = window.filled_1.data();
  const float* const filled_2 = window.filled_2.data();
  std::int32_t blended = 0;  // a row has fewer than 2^31 cells
  for (std::size_t i = 0; i < cells.grid_1.size(); ++i) {
    const merge_cell cell{out[i],    grid_2[i],   correction[i], true,
                          weight[i], filled_1[i], filled_2[i]};
    blended += static_cast<std::int32_t>((is_valid(cell.grid_1) | is_valid(cell.grid_2)) &
                                         is_valid(cell.filled_1) & is_valid(cell.filled_2) &
                                         (cell.weight >= 0.0F));
    out[i] = value_inside<adjusted_grid>(cell, offset);
  }
  return blended;
}

}  // namespace

float merged_value(const merge_cell& cell, const levelling& level) noexcept {
  return level.adjusted_grid == 0 ? plain_value<0>(cell, level.offset)
                                  : plain_value<1>(cell, level.offset);
}

void merge_outside(const merge_stretch& cells, const levelling& level) noexcept {
  level.adjusted_grid == 0 ? stretch_outside<0>(cells, level.offset)
                           : stretch_outside<1>(cells, level.offset);
}

std::int64_t merge_inside(const merge_stretch& cells, const window_stretch& window,
                          const levelling& level) noexcept {
  return level.adjusted_grid == 0 ? stretch_inside<0>(cells, window, level.offset)
                                  : stretch_inside<1>(cells, window, level.offset);
}

}  // namespace velmorankite
