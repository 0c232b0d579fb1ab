// What a transform run is asked to do.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <string>

#include "condition/padded_grid.h"
#include "formats/grid_description.h"
#include "transform/filter_parameters.h"

namespace velmorankite {

// Which road a filter takes.
inline constexpr std::int32_t fft_mode_convolution = 0;
inline constexpr std::int32_t fft_mode_memory = 1;  // a negative number is the FFT on disk

struct transform_request {
  std::string in_grid;            // grid to filter
  grid_description grid;          // of in_grid
  std::string out_grid;           // grid to write
  std::int32_t reuse = 0;         // above 0: saved padded and FFT files are used and kept;
                                  // 0: they are deleted at the end; below 0: none is used, and
                                  // the spectrum that the run saves stays
  std::string reuse_base;         // the saved files are named after it; may be blank
  std::int32_t filter = 0;        // index in the catalogue
  std::int32_t pad_width = 0;     // the margin is 3 x pad_width + 1 cells on each side
  std::int32_t filter_width = 0;  // convolution operator: 2 x filter_width - 1 cells across
  std::int32_t detrend = 0;       // units digit: mode, tens digit: scope of the plane
  std::int32_t fft_mode = 0;      // road, see above
  float hi_cut = 0.0F;            // cutoffs, in (0, 1] where they act
  float lo_cut = 0.0F;
  float azimuth = 0.0F;  // degrees
  std::array<std::int32_t, integer_parameters> int_par{};
  std::array<float, real_parameters> real_par{};
  bool power_file = true;  // whether the FFT road leaves a power spectrum

  [[nodiscard]] std::int32_t detrend_mode() const noexcept { return detrend % 10; }
  [[nodiscard]] bool keeps_plane() const noexcept { return detrend_mode() >= detrend_keeps_plane; }
  [[nodiscard]] std::int32_t detrend_scope() const noexcept { return detrend / 10 % 10; }
};

// Values of the output grid.
struct transform_range {
  float OutMin = 0.0F;
  float OutMax = 1.0F;
};

}  // namespace velmorankite
