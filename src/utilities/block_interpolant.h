// The value at a point from the three by three cells round it, whichever of them have data.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <optional>

namespace velmorankite {

// Cells in three rows of three, the lowest Y and in a row the lowest X first; z[4] is the centre.
//   6 7 8
//   3 4 5
//   0 1 2
// Bit k of `present` tells that z[k] has data; a cell without has the value 0.
struct nine_cells {
  double z[9] = {};
  std::uint32_t present = 0;
};

inline constexpr std::uint32_t all_nine = 0x1FF;

// What the cells at -1, 0 and 1 weigh at a place between or beside them.
struct three_weights {
  double lower, middle, upper;
};

// Lagrange's factors of the parabola through all three.
[[nodiscard]] constexpr three_weights parabola(double t) noexcept {
  return {-(1.0 - t) * t / 2.0, 1.0 - t * t, t * (1.0 + t) / 2.0};
}

template <typename Cell>
[[nodiscard]] constexpr double weighted(const three_weights& w, const Cell* z) noexcept {
  return w.lower * z[0] + w.middle * z[1] + w.upper * z[2];
}

// The value at (u, v), in cells from the centre, each from -1.5 to 1.5.
//   - All nine there: the biquadratic through them.
//   - Else the best that the cells allow: a parabola or a line along the row or the column on which
//     the point lies within a hundredth of a cell; a bilinear over a square or a longer rectangle;
//     the plane through three cells.
//   - Nothing where no such figure is complete.
[[nodiscard]] std::optional<double> block_value(const nine_cells& block, double u,
                                                double v) noexcept;

}  // namespace velmorankite
