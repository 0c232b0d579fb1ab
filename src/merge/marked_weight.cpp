// SPDX-License-Identifier: MIT
#include "merge/marked_weight.h"

#include <bit>
#include <cstddef>

#include "grid/dummy.h"
#include "merge/choose.h"
#include "merge/sieve/blend_weights.h"

namespace velmorankite {
namespace {

// A share from 0 to 1 leaves the two highest bits of its word 0: they mark that a grid has data.
// The three other weights stand as words that no share has, since the blend curve has no value
// between 0 and 2^-48. No marked word is a NaN, which a processor might change in passing.
constexpr std::uint32_t grid_1_mark = 0x40000000U;
constexpr std::uint32_t grid_2_mark = 0x80000000U;
constexpr std::uint32_t word_off_band = 1;
constexpr std::uint32_t word_grid_1 = 2;
constexpr std::uint32_t word_grid_2 = 3;

constexpr std::uint32_t word_of(float value) noexcept {
  return std::bit_cast<std::uint32_t>(value);
}

void restore_holes(std::span<const float> marked, std::uint32_t mark, std::span<const float> filled,
                   std::span<float> grid) noexcept {
  for (std::size_t i = 0; i < marked.size(); ++i) {
    const bool has_data = (word_of(marked[i]) & mark) != 0;
    const float value = filled[i];
    grid[i] = has_data ? value : dummy;
  }
}

}  // namespace

std::int64_t mark_weights(std::span<const float> grid_1, std::span<const float> grid_2,
                          std::span<float> weights) noexcept {
  std::int32_t overlap = 0;  // a row has fewer than 2^31 cells
  for (std::size_t i = 0; i < weights.size(); ++i) {
    const float w = weights[i];
    const bool has_1 = is_valid(grid_1[i]);
    const bool has_2 = is_valid(grid_2[i]);
    std::uint32_t word = choose(w == weight_grid_2, word_grid_2, word_of(w));
    word = choose(w == weight_grid_1, word_grid_1, word);
    word = choose(is_valid(w), word, word_off_band);
    word |= choose(has_1, grid_1_mark, 0U) | choose(has_2, grid_2_mark, 0U);
    weights[i] = std::bit_cast<float>(word);
    overlap += static_cast<std::int32_t>(has_1 & has_2 & (w >= 0.0F));
  }
  return overlap;
}

void unmark_weights(std::span<const float> marked, std::span<const float> filled_1,
                    std::span<const float> filled_2, std::span<float> grid_1,
                    std::span<float> grid_2, std::span<float> weights) noexcept {
  restore_holes(marked, grid_1_mark, filled_1, grid_1);
  restore_holes(marked, grid_2_mark, filled_2, grid_2);
  for (std::size_t i = 0; i < marked.size(); ++i) {
    const std::uint32_t word = word_of(marked[i]) & ~(grid_1_mark | grid_2_mark);
    std::uint32_t weight = choose(word == word_grid_2, word_of(weight_grid_2), word);
    weight = choose(word == word_grid_1, word_of(weight_grid_1), weight);
    weight = choose(word == word_off_band, word_of(dummy), weight);
    weights[i] = std::bit_cast<float>(weight);
  }
}

}  // namespace velmorankite
