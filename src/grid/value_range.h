// The smallest and largest value of many cells.
// SPDX-License-Identifier: MIT
#pragma once
#include <span>

namespace velmorankite {

struct value_range {
  float smallest = 1.0E30F;
  float largest = -1.0E30F;

  // Takes in the valid ones of some cells.
  void widen(std::span<const float> cells);
};

}  // namespace velmorankite
