// Filters of the transform engine: from an index and its arguments to the parameter set of a run.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

#include "grid/status.h"
#include "transform/filter_parameters.h"
#include "transform/log_line.h"

namespace velmorankite {

inline constexpr Status filter_index_invalid{-2001};
inline constexpr Status derivative_order_invalid{-2204};

// Loads the parameter set for one filter of the catalogue: checks the index, converts distances to
// cells (of CellX), works out the directions, and writes the filter's lines into the log.
//   Filter         index, first_filter to last_filter.
//   FilterWidth    half width of the convolution operator, in points.
//   DetrendUnits   units digit of the detrending mode; no filter depends on it.
//   FftMode        road, as filter_parameters::Road.
//   IntPar, RealPar  integer_parameters and real_parameters values, meaning by filter.
//   CellX, CellY   cell sizes in map units.
//   parameters     out; ShortName stays as it was for a filter that has none of its own to give.
// Status: success; filter_index_invalid, with nothing loaded; derivative_order_invalid, loaded all
// the same.
Status TRSFLT(std::int32_t Filter, std::int32_t FilterWidth, std::int32_t DetrendUnits,
              std::int32_t FftMode, float HiCut, float LoCut, float Azimuth,
              std::span<const std::int32_t, integer_parameters> IntPar,
              std::span<const float, real_parameters> RealPar, double CellX, double CellY,
              filter_parameters& parameters, const log_sink& log);

}  // namespace velmorankite
