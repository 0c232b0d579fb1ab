// The C interface of the transform engine.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <span>

#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/texts.h"
#include "transform/convolution_design.h"
#include "transform/filter_index.h"
#include "transform/fourn.h"
#include "transform/transform_driver.h"

using namespace velmorankite::capi;

namespace {

constexpr std::size_t single_reals = 22;

// Words of a complex array; 0, which no transform takes, where they cannot be counted.
std::size_t complex_words(std::span<const std::int32_t> dimensions) {
  constexpr std::uint64_t most = std::numeric_limits<std::size_t>::max() / 16;
  std::uint64_t words = 2;
  for (const std::int32_t length : dimensions) {
    if (length < 1 || words > most / static_cast<std::uint64_t>(length)) {
      return 0;
    }
    words *= static_cast<std::uint64_t>(length);
  }
  return words;
}

// Points each way of the part of an operator that is handed out.
std::int32_t operator_side(std::int32_t filter, std::int32_t points) {
  return filter < velmorankite::first_asymmetric_filter ? velmorankite::half_points(points)
                                                        : points;
}

}  // namespace

void TRSD(const char* InGrid, const std::int32_t* GridInt, const double* GridReal,
          const char* OutGrid, const std::int32_t* ReUse, const char* ReUseBase,
          const std::int32_t* Filter, const std::int32_t* PadWidth, const std::int32_t* FilterWidth,
          const std::int32_t* Detrend, const std::int32_t* FftMode, const float* HiCut,
          const float* LoCut, const float* Azimuth, const std::int32_t* IntPar,
          const float* RealPar, float* OutMin, float* OutMax, std::int32_t* Status,
          std::size_t InGrid_length, std::size_t OutGrid_length, std::size_t ReUseBase_length) {
  velmorankite::transform_range range{*OutMin, 1.0F};
  *Status = guarded("TRSD", [&] {
    velmorankite::transform_request request;
    request.in_grid = text_in(InGrid, InGrid_length);
    request.grid = description_in(GridInt, GridReal);
    request.out_grid = text_in(OutGrid, OutGrid_length);
    request.reuse = *ReUse;
    request.reuse_base = text_in(ReUseBase, ReUseBase_length);
    request.filter = *Filter;
    request.pad_width = *PadWidth;
    request.filter_width = *FilterWidth;
    request.detrend = *Detrend;
    request.fft_mode = *FftMode;
    request.hi_cut = *HiCut;
    request.lo_cut = *LoCut;
    request.azimuth = *Azimuth;
    std::copy_n(IntPar, request.int_par.size(), request.int_par.begin());
    std::copy_n(RealPar, request.real_par.size(), request.real_par.begin());
    return velmorankite::TRSD(request, range);
  });
  *OutMin = range.OutMin;
  *OutMax = range.OutMax;
}

void TRS(const char* InGrid, const std::int32_t* GridInt, float* GridReal, const char* OutGrid,
         const std::int32_t* ReUse, const char* ReUseBase, const std::int32_t* Filter,
         const std::int32_t* PadWidth, const std::int32_t* FilterWidth, const std::int32_t* Detrend,
         const std::int32_t* FftMode, const float* HiCut, const float* LoCut, const float* Azimuth,
         const std::int32_t* IntPar, const float* RealPar, float* OutMin, float* OutMax,
         std::int32_t* Status, std::size_t InGrid_length, std::size_t OutGrid_length,
         std::size_t ReUseBase_length) {
  // TRSD changes none of them, so that they need not be narrowed back.
  std::array<double, VELMORANKITE_DESCRIPTION_WORDS> reals{};
  std::copy_n(GridReal, single_reals, reals.begin());
  TRSD(InGrid, GridInt, reals.data(), OutGrid, ReUse, ReUseBase, Filter, PadWidth, FilterWidth,
       Detrend, FftMode, HiCut, LoCut, Azimuth, IntPar, RealPar, OutMin, OutMax, Status,
       InGrid_length, OutGrid_length, ReUseBase_length);
}

std::int32_t FOURN(float* data, const std::int32_t* dimension_count, const std::int32_t* dimensions,
                   const std::int32_t* sign) {
  return guarded("FOURN", [&] {
    const std::span lengths(dimensions, static_cast<std::size_t>(std::max(*dimension_count, 0)));
    return velmorankite::FOURN({data, complex_words(lengths)}, lengths, *sign);
  });
}

void CALC_FILTER_COEFFICIENTS(const std::int32_t* Filter, const std::int32_t* Opt1,
                              const std::int32_t* Opt2, const float* LoCut, const float* HiCut,
                              const float* Par1, const float* Par2, const float* Par3,
                              const double* CellX, const double* CellY, const double* direction,
                              const std::int32_t* columns, const std::int32_t* rows, float* weights,
                              std::int32_t* Status) {
  *Status = guarded("CALC_FILTER_COEFFICIENTS", [&] {
    const std::int32_t side = operator_side(*Filter, *columns);
    return velmorankite::CALC_FILTER_COEFFICIENTS(*Filter, *Opt1, *Opt2, *LoCut, *HiCut, *Par1,
                                                  *Par2, *Par3, *CellX, *CellY, *direction,
                                                  *columns, *rows, cells_of(weights, side, side));
  });
}
