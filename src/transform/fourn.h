// The complex Fourier transform in any number of dimensions, in place.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "grid/status.h"

namespace velmorankite {

inline constexpr Status fourn_bad_dimension{-1};  // not a power of two, or no dimension at all
inline constexpr Status fourn_short_array{-2};    // fewer words than the dimensions ask for
inline constexpr Status fourn_bad_sign{-3};       // neither 1 nor -1

// Transforms an array of complex numbers along each of its dimensions, without normalisation.
//   data        2 x the product of the dimensions words, in and out: complex pairs, real part
//               first, the first dimension fastest. Words behind these are not touched.
//   dimensions  lengths, each a power of two (1 counts as one), the fastest first.
//   sign        1: forward, the exponent is +2 pi i k x / n; -1: inverse. Both in turn give the
//               data times the product of the dimensions.
// Status: success or one of those above, the data then as they were.
//
// The rounding is that of the radix-2 transform by decimation in time (Danielson and Lanczos,
// 1942; Brenner's recurrence), dimension after dimension, the fastest first:
//   - the elements of a line are put in bit-reversed order;
//   - for the half lengths m = 1, 2, 4 ... n / 2 the angle is t = sign x (6.28318530717959 / 2m)
//     and the factor w of j = 0 ... m - 1 comes from a recurrence in double precision:
//     w(0) = 1, w(j + 1) = w(j) + w(j) x (-2 sin(t / 2)^2 + i sin(t)), each part summed from
//     left to right as (wr x pr - wi x pi) + wr and (wi x pr + wr x pi) + wi;
//   - with w rounded to single precision, the pair (a, b) of elements j and j + m of every block
//     of 2m becomes (a + w b, a - w b); each product, difference and sum is rounded to single.
// The order in which lines and blocks are worked on is free, so the result is the same bit for
// bit on every machine and with every width of vector.
Status FOURN(std::span<float> data, std::span<const std::int32_t> dimensions, std::int32_t sign);

// Makes the elements of a line of the first dimension; lines count from 0.
using line_maker = std::function<void(std::size_t line, std::span<float> elements)>;

// The same of an array whose lines are made just ahead of their transform along the first
// dimension, in ascending order: they are then in the cache. What `data` holds before is lost.
// What `make` throws is passed on, with part of the lines made.
Status FOURN(std::span<float> data, std::span<const std::int32_t> dimensions, std::int32_t sign,
             const line_maker& make);

}  // namespace velmorankite
