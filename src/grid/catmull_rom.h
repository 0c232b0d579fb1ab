// The Catmull-Rom cubic over four by four cells, and what stands in for holes among them.
// SPDX-License-Identifier: MIT
#pragma once
#include <bit>
#include <cstdint>

#include "grid/dummy.h"

namespace velmorankite {

// Cells round a base cell: f[r + 1][c + 1] lies r rows above it and c columns to its right, r and
// c from -1 to 2. A point between the base cell and f[2][2] is interpolated from all sixteen.
struct CellBlock {
  float f[4][4];

  [[nodiscard]] float& at(int r, int c) noexcept { return f[r + 1][c + 1]; }
  [[nodiscard]] float at(int r, int c) const noexcept { return f[r + 1][c + 1]; }
};

// One replacement: the hole at (r, c) takes what then stands at (from_r, from_c).
struct hole_patch {
  std::int8_t r, c, from_r, from_c;
};

// The order matters: a hole may take a value that was patched itself.
inline constexpr hole_patch hole_patches[] = {
    {-1, 0, 0, 0}, {-1, -1, -1, 0}, {-1, 1, -1, 0}, {-1, 2, -1, 1}, {0, -1, 0, 0},
    {0, 1, 0, 0},  {0, 2, 0, 1},    {1, 0, 0, 0},   {1, -1, 1, 0},  {1, 1, 1, 0},
    {1, 2, 1, 1},  {2, 0, 1, 0},    {2, -1, 2, 0},  {2, 1, 2, 0},   {2, 2, 2, 1},
};

// `cell`, or `substitute` where it is a hole. Without a branch: holes come as they like, and a
// wrong guess costs the processor more than all else here.
[[nodiscard]] inline float filled(float cell, float substitute) noexcept {
  const std::uint32_t keep = 0U - static_cast<std::uint32_t>(is_valid(cell));
  return std::bit_cast<float>((std::bit_cast<std::uint32_t>(cell) & keep) |
                              (std::bit_cast<std::uint32_t>(substitute) & ~keep));
}

// Gives every hole of the block a value from its neighbours, the base cell first: it takes
// `nearest`, the cell nearest to the point, which must be valid.
inline void patch_holes(CellBlock& block, float nearest) noexcept {
  block.at(0, 0) = filled(block.at(0, 0), nearest);
  for (const hole_patch& patch : hole_patches) {
    block.at(patch.r, patch.c) =
        filled(block.at(patch.r, patch.c), block.at(patch.from_r, patch.from_c));
  }
}

// Value at `fy` (0 at q, 1 at r) of the cubic along Y through four cells of a column, the lowest
// first. Coefficients are single precision; the cubic is evaluated in double and rounded once.
[[nodiscard]] inline float column_value(float p, float q, float r, float s, double fy) noexcept {
  const float a = (q - r) * 1.5F - 0.5F * p + 0.5F * s;
  const float b = (p - 2.5F * q) + 2.0F * r - 0.5F * s;
  const float d = 0.5F * r - 0.5F * p;
  return static_cast<float>(q + (d + (b + a * fy) * fy) * fy);
}

// Value at `fx` (0 at q, 1 at r) of the cubic along X through four column values, the leftmost
// first. All in double, rounded once at the end.
[[nodiscard]] inline float row_value(double p, double q, double r, double s, double fx) noexcept {
  return static_cast<float>(
      q + fx * ((r - p) * 0.5 +
                ((p - 2.5 * q + 2.0 * r - 0.5 * s) + ((q - r) * 1.5 + (s - p) * 0.5) * fx) * fx));
}

}  // namespace velmorankite
