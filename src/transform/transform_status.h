// Why a transform run makes nothing.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/status.h"

namespace velmorankite {

inline constexpr Status transform_arguments_invalid{-1001};  // names, the sense, a cell size
inline constexpr Status transform_not_available{-1002};      // a road or filter of a later version
inline constexpr Status transform_padding_invalid{-1003};
inline constexpr Status transform_road_unknown{-1004};  // FftMode above 1
inline constexpr Status transform_conversion_failed{-1006};
inline constexpr Status transform_input_unopened{-1007};
inline constexpr Status transform_fill_failed{-1008};
inline constexpr Status transform_filter_refused{-1010};  // the catalogue's own checks
inline constexpr Status transform_row_memory_fft{-1012};
inline constexpr Status transform_row_memory{-1013};  // convolution road
inline constexpr Status transform_array_memory{-1015};
inline constexpr Status transform_padding_failed{-1016};
inline constexpr Status transform_design_failed{-1023};

}  // namespace velmorankite
