// One run of the transform engine: what its stages make and its products read.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <filesystem>

#include "grid/grid_rows.h"
#include "grid/status.h"
#include "platform/large_array.h"
#include "platform/scratch_file.h"
#include "transform/fft_array.h"
#include "transform/gradient_stage.h"
#include "transform/padded_source.h"
#include "transform/power_spectrum.h"
#include "transform/run_names.h"
#include "transform/transform_log.h"
#include "transform/transform_request.h"

namespace velmorankite {

// The driver fills it from the top down, as far as the product needs.
struct transform_run {
  const transform_request& request;
  TransformLog& log;
  transform_range& range;  // of the output; unchanged where none is made

  transform_input input{};                       // the grid, or what it was converted to
  platform::ScratchFile converted{};             // holds it where it had to be converted
  reuse_names saved{};                           // blank names where nothing is saved under one
  std::array<platform::ScratchFile, 2> going{};  // saved grids that go with this run

  fft_geometry geometry{};
  bool arrays_planned = false;             // from here on the log tells of their release
  platform::LargeArray<float> array{};     // FFT in memory: geometry.fftwords() elements
  platform::ScratchFile padded_scratch{};  // removed as soon as nothing reads it any more
  RowFile padded{};                        // some products write their result over it
  padded_grid_facts facts{};
  RowFile input_rows{};

  std::filesystem::path spectrum{};          // file that holds the spectrum
  platform::ScratchFile spectrum_scratch{};  // the same, where it goes with the run
  PowerSpectrum power{};                     // of the last response

  // The array, as the stages on the FFT road work on it.
  [[nodiscard]] fft_stage stage() {
    return {lattice_of(input.grid), geometry, array.span(), power};
  }
};

}  // namespace velmorankite
