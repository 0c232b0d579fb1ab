// SPDX-License-Identifier: MIT
#include "grid/value_range.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// Several ranges side by side, so that no cell waits for the one before it.
constexpr std::size_t lanes = 16;

VELMORANKITE_VECTOR_CLONES void widen_lanes(const float* cells, std::size_t count, float* smallest,
                                            float* largest) {
  for (std::size_t first = 0; first < count; first += lanes) {
    for (std::size_t lane = 0; lane < lanes; ++lane) {
      const float value = cells[first + lane];
      const bool lower = is_valid(value) & (value < smallest[lane]);
      const bool higher = is_valid(value) & (value > largest[lane]);
      smallest[lane] = lower ? value : smallest[lane];
      largest[lane] = higher ? value : largest[lane];
    }
  }
}

}  // namespace

void value_range::widen(std::span<const float> cells) {
  std::array<float, lanes> low;
  std::array<float, lanes> high;
  low.fill(smallest);
  high.fill(largest);
  const std::size_t whole = cells.size() - cells.size() % lanes;
  widen_lanes(cells.data(), whole, low.data(), high.data());
  std::array<float, lanes> rest;
  rest.fill(dummy);
  std::ranges::copy(cells.subspan(whole), rest.begin());
  widen_lanes(rest.data(), lanes, low.data(), high.data());
  smallest = std::ranges::min(low);
  largest = std::ranges::max(high);
}

}  // namespace velmorankite
