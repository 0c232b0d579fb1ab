// Exponential, power, sine and arc tangent without a branch or a table, so that a loop over a row
// of frequencies runs in vectors. They give the same bits on every machine, which the functions of
// the system do not promise.
// SPDX-License-Identifier: MIT
#pragma once
#include <bit>
#include <cstdint>

namespace velmorankite {
namespace elementary {

inline constexpr int mantissa_bits = 52;
inline constexpr std::uint64_t exponent_bias = 1023;
// ln 2 in two parts; the first has so few bits that its products with whole exponents are exact.
inline constexpr double ln2_high = 6.93147180369123816490E-1;
inline constexpr double ln2_low = 1.90821492927058770002E-10;
// A number of up to 51 bits added to this one is rounded to a whole one, in the lowest bits.
inline constexpr double to_whole = 0x1.8p52;

// 2 to the power of k, where `shifted` is to_whole + k and -1023 < k < 1024.
[[nodiscard]] inline double power_of_two(double shifted) noexcept {
  return std::bit_cast<double>((std::bit_cast<std::uint64_t>(shifted) + exponent_bias)
                               << mantissa_bits);
}

// exp(r) for r from -ln 2 / 2 to ln 2 / 2: Taylor's series up to the power of 13, summed by
// Estrin's scheme.
[[nodiscard]] inline double exponential_series(double r) noexcept {
  const double r2 = r * r;
  const double r4 = r2 * r2;
  const double from_0 = (1.0 + r) + r2 * (1.0 / 2.0 + r * (1.0 / 6.0));
  const double from_4 = (1.0 / 24.0 + r * (1.0 / 120.0)) + r2 * (1.0 / 720.0 + r * (1.0 / 5040.0));
  const double from_8 = (1.0 / 40320.0 + r * (1.0 / 362880.0)) +
                        r2 * (1.0 / 3628800.0 + r * (1.0 / 39916800.0)) +
                        r4 * (1.0 / 479001600.0 + r * (1.0 / 6227020800.0));
  return from_0 + r4 * from_4 + (r4 * r4) * from_8;
}

// sin(x) for x from -pi / 2 to pi / 2: Taylor's series up to the power of 21.
[[nodiscard]] inline double sine_series(double x) noexcept {
  const double z = x * x;
  const double z2 = z * z;
  const double z4 = z2 * z2;
  const double from_3 =
      (-1.0 / 6.0 + z * (1.0 / 120.0)) + z2 * (-1.0 / 5040.0 + z * (1.0 / 362880.0));
  const double from_11 = (-1.0 / 39916800.0 + z * (1.0 / 6227020800.0)) +
                         z2 * (-1.0 / 1307674368000.0 + z * (1.0 / 355687428096000.0));
  const double from_19 = -1.0 / 121645100408832000.0 + z * (1.0 / 51090942171709440000.0);
  return x + x * (z * (from_3 + z4 * from_11 + (z4 * z4) * from_19));
}

// atan(t) for t from -tan(pi / 8) to tan(pi / 8). Taylor's series is slow here: the coefficients
// are those of the polynomial through the Chebyshev points of the range, with an error of 1e-17.
[[nodiscard]] inline double arc_tangent_series(double t) noexcept {
  const double z = t * t;
  const double z2 = z * z;
  const double z4 = z2 * z2;
  const double from_3 = (0.3333333333333333 - z * 0.1999999999999552) +
                        z2 * (0.14285714284666687 - z * 0.11111111015266668);
  const double from_11 = (0.09090904578495053 - z * 0.07692183198522419) +
                         z2 * (0.06664511545006527 - z * 0.0585814968321526);
  const double from_19 = 0.050854534301369866 - z * 0.039231756692267014 + z2 * 0.01917699898852487;
  return t - t * (z * (from_3 + z4 * from_11 + (z4 * z4) * from_19));
}

}  // namespace elementary

// exp(x) of any x, to a relative error of 1e-15: what is too small comes out as 0, what is too
// large as infinity. The argument is brought near 0 by Cody and Waite's two-part ln 2 (1980).
[[nodiscard]] inline double exponential(double x) noexcept {
  namespace e = elementary;
  constexpr double log2_e = 1.4426950408889634;
  constexpr double far = 800.0;  // beyond this nothing changes any more
  const double upper = x > far ? far : x;
  const double near = upper < -far ? -far : upper;
  const double k = (near * log2_e + e::to_whole) - e::to_whole;
  const double r = (near - k * e::ln2_high) - k * e::ln2_low;
  // In two factors, each of which is a number of full precision.
  const double shifted_half = k * 0.5 + e::to_whole;
  const double rest = k - (shifted_half - e::to_whole);
  return e::exponential_series(r) * e::power_of_two(shifted_half) *
         e::power_of_two(rest + e::to_whole);
}

// Natural logarithm of a positive number of full precision, to a relative error of some 1e-15 but
// for numbers next to 1: the series of the area tangent of (m - 1) / (m + 1), m the mantissa.
[[nodiscard]] inline double logarithm(double x) noexcept {
  namespace e = elementary;
  constexpr std::uint64_t root_of_half = 0x3FE6A09E667F3BCD;  // the bits of it
  constexpr double whole_bits = 0x1p52;  // has a small whole number in its lowest bits
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(x);
  const std::uint64_t biased =
      (bits - root_of_half + (e::exponent_bias << e::mantissa_bits)) >> e::mantissa_bits;
  const double exponent = std::bit_cast<double>(biased | std::bit_cast<std::uint64_t>(whole_bits)) -
                          (whole_bits + static_cast<double>(e::exponent_bias));
  const double m = std::bit_cast<double>(bits - ((biased - e::exponent_bias) << e::mantissa_bits));
  const double s = (m - 1.0) / (m + 1.0);
  const double z = s * s;
  const double z2 = z * z;
  const double series =
      (1.0 / 3.0 + z * (1.0 / 5.0)) + z2 * (1.0 / 7.0 + z * (1.0 / 9.0)) +
      (z2 * z2) * ((1.0 / 11.0 + z * (1.0 / 13.0)) + z2 * (1.0 / 15.0 + z * (1.0 / 17.0)) +
                   (z2 * z2) * (1.0 / 19.0 + z * (1.0 / 21.0)));
  return exponent * (e::ln2_high + e::ln2_low) + (2.0 * s + 2.0 * s * (z * series));
}

// sin(pi t), |t| below 2^51, to an error of a few units in the last place of sin(pi / 2).
[[nodiscard]] inline double sine_of_half_turns(double t) noexcept {
  namespace e = elementary;
  constexpr double pi = 3.14159265358979323846;
  const double shifted = t + e::to_whole;
  const double sine = e::sine_series(pi * (t - (shifted - e::to_whole)));
  // Odd half turns change the sign.
  const std::uint64_t sign = std::bit_cast<std::uint64_t>(shifted) << 63;
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(sine) ^ sign);
}

// The angle from 0 to pi / 2 between the X axis and the point (x, y), neither below 0 nor both 0,
// to a few units in the last place. It is brought near to 0 by its complement to pi / 2 and, beyond
// pi / 8, by its difference to pi / 4.
[[nodiscard]] inline double angle_of(double x, double y) noexcept {
  constexpr double pi = 3.14159265358979323846;
  constexpr double tangent_of_eighth = 0.41421356237309503;
  const double small = y > x ? x : y;
  const double large = y > x ? y : x;
  const bool far = small > tangent_of_eighth * large;
  const double series =
      elementary::arc_tangent_series((far ? small - large : small) / (far ? small + large : large));
  const double angle = far ? series + pi / 4.0 : series;
  return y > x ? pi / 2.0 - angle : angle;
}

// x to the power of y, x a positive number of full precision. The relative error is that of the
// logarithm times |y ln x|: 1e-13 at the very most.
[[nodiscard]] inline double power(double x, double y) noexcept {
  return exponential(y * logarithm(x));
}

}  // namespace velmorankite
