// The weight of a window cell and, in the same word, which of the two grids has data there. With
// it the grids on the window can be filled in place and their holes are still known afterwards.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

namespace velmorankite {

// All spans of a call are of one length.

// Marks the weights of a row of cells: the dummy, weight_grid_1, weight_grid_2 or a share from 0 to
// 1. Gives the number of cells of the blend at which both grids are valid.
std::int64_t mark_weights(std::span<const float> grid_1, std::span<const float> grid_2,
                          std::span<float> weights) noexcept;

// Takes marked weights apart.
//   filled_1, filled_2  the grids without holes, valid cells as they were
//   grid_1, grid_2      out: the same with their holes, which are dummies
//   weights             out: the plain weights
void unmark_weights(std::span<const float> marked, std::span<const float> filled_1,
                    std::span<const float> filled_2, std::span<float> grid_1,
                    std::span<float> grid_2, std::span<float> weights) noexcept;

}  // namespace velmorankite
