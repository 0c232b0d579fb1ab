// The response of a filter on a spectrum.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

#include "transform/filter_parameters.h"
#include "transform/power_spectrum.h"

namespace velmorankite {

// A two-dimensional array of complex numbers, real part first, columns fastest. Both sizes are
// powers of two.
struct fft_size {
  std::int32_t fftnx = 0;  // columns
  std::int32_t fftny = 0;  // rows
};

// Multiplies a spectrum by the response of a filter and sums up its power before and behind it.
//   Normalise   divides the spectrum by fftnx x fftny first, so that the inverse transform gives
//               values on the scale of the data.
//   size        of the array. Element (i, j), from 1, stands for u = kx / -fftnx and
//               v = ky / fftny cycles per cell, kx = i - 1 up to half of fftnx and i - fftnx - 1
//               from there on, ky likewise: with array rows that run from the north, u grows to
//               the east and v to the north.
//   filter      index of the response; an index without one leaves the elements as they are.
//   parameters  of the response.
//   array       2 x fftnx x fftny words, in and out. Responses are worked out in double precision
//               and the product is rounded to single.
//   power       out, cleared first: the powers of the elements nearer than 0.5 to zero frequency.
// The responses of the field components also set the first element to the negative sum of all
// elements: the mean of a component is not in the total field.
void fftrsp(bool Normalise, fft_size size, std::int32_t filter, const filter_parameters& parameters,
            std::span<float> array, PowerSpectrum& power);

}  // namespace velmorankite
