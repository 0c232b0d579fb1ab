// The padded grid of a transform: the data in the middle of a larger lattice, without their plane,
// every blank cell filled, and the edges tapered so that the grid repeats without a step.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>

#include "condition/plane_fit.h"
#include "grid/status.h"
#include "grid/value_range.h"

namespace velmorankite {

inline constexpr Status pad_input_unreadable{-999};
inline constexpr Status pad_size_impossible{-1};  // the padded grid does not hold the input

// Detrend modes: below 2 the plane is taken out and the taper aims at 0; from 2 on the data stay
// as they are and the taper aims at the average.
inline constexpr std::int32_t detrend_keeps_plane = 2;

struct pad_request {
  bool taper = false;
  std::int32_t taper_width = 1;  // cells, above 0
  std::int32_t column_pad = 0;   // columns of margin before the first input cell
  std::int32_t row_pad = 0;      // rows of margin before the first input cell
  std::int32_t x_count = 0;      // size of the padded grid
  std::int32_t y_count = 0;
  float average = 0.0F;           // of the input's valid cells
  std::int32_t detrend_mode = 0;  // see above
  plane trend;                    // of the input
  // Memory that nobody uses during the call: the grid is made in it where it is large enough.
  std::span<float> lent{};
};

// How the padded grid is held while it is made: whole, or by rows through its file where it does
// not fit in memory. The result is the same to the bit.
enum class pad_storage { whole, by_rows };

// Makes the padded grid of a standard grid.
//   input    standard grid of 4-byte floats. Not changed.
//   padded   standard grid to write, of the input's storage sense. The header carries what the
//            grid was made with, for the test on reuse: stat_min and stat_max the slopes along X
//            and Y, stat_median the plane's constant, stat_mean the average, process flag the
//            detrend mode.
//   range    out: smallest and largest value of the padded grid.
// Status: pad_input_unreadable, pad_size_impossible, or that of GRDMIPMAP (a size below 4, no valid
// cell). On any failure, IoError among them, no file of that name is left; but where it would
// replace the input, which is an IoError, all stays as it is. Falls back to rows where the whole
// grid cannot be allocated.
Status GRDPAD(std::string_view input, const std::filesystem::path& padded,
              const pad_request& request, value_range& range,
              pad_storage storage = pad_storage::whole);

}  // namespace velmorankite
