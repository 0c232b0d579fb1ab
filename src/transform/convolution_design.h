// Operators of the convolution road, designed from the same responses as the FFT roads.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

#include "grid/status.h"
#include "transform/filter_parameters.h"
#include "transform/log_line.h"

namespace velmorankite {

inline constexpr Status operator_index_invalid{-3001};  // not one of a symmetric filter
inline constexpr Status operator_unknown{-3002};        // a symmetric filter without an operator
inline constexpr Status operator_size_invalid{-3003};   // not an odd number of points, or an array
                                                        // that does not hold them
inline constexpr Status operator_without_response{1};   // all ones

// A symmetric operator of 2 w - 1 points each way is its quarter plane: w x w weights, X fastest,
// the centre first. An asymmetric operator of n points each way, n odd, holds n x n weights, X
// fastest, its centre in the middle; the result at a cell is the sum over the lags of the weight
// times the cell that lies the lag back, towards the south west for positive lags.

// Points each way, from the half width of a symmetric operator, and back.
[[nodiscard]] constexpr std::int32_t full_points(std::int32_t w) noexcept {
  return 2 * w - 1;
}
[[nodiscard]] constexpr std::int32_t half_points(std::int32_t n) noexcept {
  return (n - 1) / 2 + 1;
}

// Designs the operator of parameters.FilterNo with n points each way: WTSYM with half of them below
// 200, else WTASYM. Status as those.
Status WTDESIGN(const filter_parameters& parameters, std::int32_t n, std::span<float> weights,
                const log_sink& log);

// Designs a symmetric operator of w x w weights: for smoothing a window over the operator, for the
// strike filter an area mean less the mean along the strike, for the others the inverse cosine
// transform of the sampled response. Logs the weights and their sum over the whole operator.
// Status: success, operator_index_invalid, operator_unknown or operator_size_invalid.
Status WTSYM(const filter_parameters& parameters, std::int32_t w, std::span<float> weights,
             const log_sink& log);

// Designs an asymmetric operator of n x n weights, the inverse Fourier transform of the response
// sampled on n x n frequencies, so that it means what the response means on the FFT road. Logs
// samples and weights. Status: success, operator_size_invalid, or operator_without_response.
Status WTASYM(const filter_parameters& parameters, std::int32_t n, std::span<float> weights,
              const log_sink& log);

// Designs an operator outside of a run; distances are in cells. The remanence is taken along the
// field, whose declination is Par1 and inclination Par2.
//   direction    degrees from the Y axis towards the X axis, of a horizontal derivative.
//   columns, rows  points each way; both the same odd number n.
//   weights      out: for an index below 200 the (n - 1) / 2 + 1 squared weights of the quarter
//                plane, else n x n.
// Status as WTSYM and WTASYM.
Status CALC_FILTER_COEFFICIENTS(std::int32_t Filter, std::int32_t Opt1, std::int32_t Opt2,
                                float LoCut, float HiCut, float Par1, float Par2, float Par3,
                                double CellX, double CellY, double direction, std::int32_t columns,
                                std::int32_t rows, std::span<float> weights);

}  // namespace velmorankite
