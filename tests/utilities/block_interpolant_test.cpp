// SPDX-License-Identifier: MIT
#include "utilities/block_interpolant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <random>
#include <vector>

namespace velmorankite {
namespace {

// The interpolants one after the other, each written out by itself.
class PlainBlock {
 public:
  PlainBlock(const nine_cells& block, double at_u, double at_v)
      : z(block.z), present(block.present), u(at_u), v(at_v) {}

  [[nodiscard]] std::optional<double> value() const {
    const bool u_near = std::fabs(u) <= 0.009999999776482582;
    const bool v_near = std::fabs(v) <= 0.009999999776482582;
    if (present == 0) return std::nullopt;
    if (has(0x1FF)) return three(v, three(u, 0, 1, 2), three(u, 3, 4, 5), three(u, 6, 7, 8));
    if (u_near && v_near && has(0x10)) return z[4];
    if (v_near && has(0x38)) return three(u, 3, 4, 5);
    if (v_near && u >= 0 && has(0x30)) return z[4] * (1 - u) + z[5] * u;
    if (v_near && u < 0 && has(0x18)) return -z[3] * u + z[4] * (1 + u);
    if (v_near && has(0x28)) return (z[3] * (1 - u) + z[5] * (1 + u)) / 2;
    if (u_near && has(0x92)) return three(v, 1, 4, 7);
    if (u_near && v >= 0 && has(0x90)) return z[4] * (1 - v) + z[7] * v;
    if (u_near && v < 0 && has(0x12)) return -z[1] * v + z[4] * (1 + v);
    if (u_near && has(0x82)) return (z[1] * (1 - v) + z[7] * (1 + v)) / 2;
    if (u >= 0 && v >= 0 && has(0x1B0)) return square(0x1B0);
    if (u >= 0 && v < 0 && has(0x36)) return square(0x36);
    if (u >= 0 && has(0x186)) return square(0x186);
    if (u < 0 && v >= 0 && has(0xD8)) return square(0xD8);
    if (u < 0 && v < 0 && has(0x1B)) return square(0x1B);
    if (u < 0 && has(0xC3)) return square(0xC3);
    if (const auto value = triangle()) return value;
    if (v >= 0 && has(0x168)) return bilinear(3, 5, 6, 8, (1 + u) / 2, v);
    if (v < 0 && has(0x2D)) return bilinear(0, 2, 3, 5, (1 + u) / 2, v + 1);
    if (has(0x145)) return bilinear(0, 2, 6, 8, (1 + u) / 2, (1 + v) / 2);
    for (const unsigned cells : {0x1B0U, 0x36U, 0x186U, 0xD8U, 0x1BU, 0xC3U}) {
      if (has(cells)) return square(cells);
    }
    return std::nullopt;
  }

 private:
  [[nodiscard]] bool has(unsigned cells) const { return (present & cells) == cells; }

  static double three(double t, double a, double b, double c) {
    return -(1 - t) * t / 2 * a + (1 - t * t) * b + t * (1 + t) / 2 * c;
  }
  [[nodiscard]] double three(double t, int a, int b, int c) const {
    return three(t, z[a], z[b], z[c]);
  }
  // On a square with its lower left corner at a, at (s, t) of it.
  [[nodiscard]] double bilinear(int a, int b, int c, int d, double s, double t) const {
    return (z[a] * (1 - s) + z[b] * s) * (1 - t) + (z[c] * (1 - s) + z[d] * s) * t;
  }
  [[nodiscard]] double square(unsigned cells) const {
    switch (cells) {
      case 0x1B0:
        return bilinear(4, 5, 7, 8, u, v);
      case 0x36:
        return bilinear(1, 2, 4, 5, u, v + 1);
      case 0x186:
        return bilinear(1, 2, 7, 8, u, (1 + v) / 2);
      case 0xD8:
        return bilinear(3, 4, 6, 7, u + 1, v);
      case 0x1B:
        return bilinear(0, 1, 3, 4, u + 1, v + 1);
      default:
        return bilinear(0, 1, 6, 7, u + 1, (1 + v) / 2);
    }
  }
  // The plane a + b u + c v through three cells, by Cramer's rule.
  [[nodiscard]] double plane(int p, int q, int r) const {
    const auto x = [](int k) { return static_cast<double>(k % 3 - 1); };
    const auto y = [](int k) { return static_cast<double>(k / 3 - 1); };
    const double area = (x(q) - x(p)) * (y(r) - y(p)) - (x(r) - x(p)) * (y(q) - y(p));
    const double b = (z[q] - z[p]) * (y(r) - y(p)) - (z[r] - z[p]) * (y(q) - y(p));
    const double c = (x(q) - x(p)) * (z[r] - z[p]) - (x(r) - x(p)) * (z[q] - z[p]);
    return z[p] + (b * (u - x(p)) + c * (v - y(p))) / area;
  }
  [[nodiscard]] std::optional<double> triangle() const {
    if (u >= 0 && v >= 0) {
      if (u + v <= 1 && has(0xB0)) return plane(4, 5, 7);
      if (u + v > 1 && has(0x1A0)) return plane(5, 7, 8);
      if (v >= u && has(0x190)) return plane(4, 7, 8);
      if (u > v && has(0x130)) return plane(4, 5, 8);
    } else if (u >= 0) {
      if (u + v <= 0 && has(0x16)) return plane(1, 2, 4);
      if (u + v > 0 && has(0x34)) return plane(2, 4, 5);
      if (u - v <= 1 && has(0x32)) return plane(1, 4, 5);
      if (u - v > 1 && has(0x26)) return plane(1, 2, 5);
    } else if (v >= 0) {
      if (u + v <= 0 && has(0x58)) return plane(3, 4, 6);
      if (u + v > 0 && has(0xD0)) return plane(4, 6, 7);
      if (v - u >= 1 && has(0xC8)) return plane(3, 6, 7);
      if (v - u < 1 && has(0x98)) return plane(3, 4, 7);
    } else {
      if (u + v <= -1 && has(0x0B)) return plane(0, 1, 3);
      if (u + v > -1 && has(0x1A)) return plane(1, 3, 4);
      if (v >= u && has(0x19)) return plane(0, 3, 4);
      if (u > v && has(0x13)) return plane(0, 1, 4);
    }
    return std::nullopt;
  }

  const double* z;
  unsigned present;
  double u, v;
};

// Places along one axis: inside and beyond the block, on its cells, on the bounds of the conditions
// and at both ends of the hundredth of a cell that counts as on a row.
std::vector<double> places(std::mt19937& generator) {
  std::vector<double> result = {-1.5, -1.0, -0.5, 0.0, 0.5, 1.0, 1.5, -0.0099, 0.0099, 0.0101};
  std::uniform_real_distribution<double> any(-1.5, 1.5);
  for (int i = 0; i < 10; ++i) {
    result.push_back(any(generator));
  }
  return result;
}

TEST(BlockInterpolant, any_cells_that_are_there_give_the_value_of_the_plain_reading) {
  std::mt19937 generator(3);
  std::uniform_real_distribution<double> cell(-100.0, 100.0);
  for (unsigned present = 0; present <= all_nine; ++present) {
    nine_cells block;
    block.present = present;
    for (unsigned k = 0; k < 9; ++k) {
      block.z[k] = (present >> k & 1U) != 0 ? cell(generator) : 0.0;
    }
    for (const double u : places(generator)) {
      for (const double v : places(generator)) {
        const std::optional<double> expected = PlainBlock(block, u, v).value();
        const std::optional<double> value = block_value(block, u, v);
        ASSERT_EQ(expected.has_value(), value.has_value()) << present << " at " << u << ' ' << v;
        if (value) {
          ASSERT_NEAR(*expected, *value, 1.0E-11) << present << " at " << u << ' ' << v;
        }
      }
    }
  }
}

}  // namespace
}  // namespace velmorankite
