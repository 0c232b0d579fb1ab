// Complex numbers as the responses need them: plain products, parts rounded where it is said.
// SPDX-License-Identifier: MIT
#pragma once

namespace velmorankite {

// One value of a complex response, or one factor of it.
struct complex_response {
  double re = 0.0;
  double im = 0.0;
};

struct complex_single {
  float re = 0.0F;
  float im = 0.0F;
};

[[nodiscard]] inline complex_single rounded(double re, double im) {
  return {static_cast<float>(re), static_cast<float>(im)};
}

[[nodiscard]] inline complex_response widened(complex_single z) {
  return {static_cast<double>(z.re), static_cast<double>(z.im)};
}

// The product, every operation rounded to single.
[[nodiscard]] inline complex_single operator*(complex_single a, complex_single b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

[[nodiscard]] inline complex_response operator*(complex_response a, complex_response b) {
  return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

[[nodiscard]] inline complex_response operator*(double factor, complex_response z) {
  return {factor * z.re, factor * z.im};
}

[[nodiscard]] inline complex_response operator+(complex_response a, complex_response b) {
  return {a.re + b.re, a.im + b.im};
}

// 1 / z in double.
[[nodiscard]] inline complex_response reciprocal(complex_single z) {
  const complex_response wide = widened(z);
  const double square = wide.re * wide.re + wide.im * wide.im;
  return {wide.re / square, -wide.im / square};
}

}  // namespace velmorankite
