// The road of a transform that holds the whole spectrum in memory.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <optional>
#include <string>

#include "platform/binary_file.h"
#include "platform/large_array.h"
#include "platform/scratch_file.h"
#include "transform/fft_array.h"
#include "transform/filter_parameters.h"
#include "transform/gradient_stage.h"
#include "transform/output_grid.h"
#include "transform/padded_source.h"
#include "transform/power_spectrum.h"
#include "transform/transform_log.h"
#include "transform/transform_request.h"

namespace velmorankite {

// A run on this road: what the driver prepared, and the array.
struct memory_run {
  const transform_request& request;
  const transform_input& input;
  const RowFile& input_rows;
  platform::ScratchFile& padded_scratch;
  RowFile& padded;  // the padded grid; some filters write their result over it
  const padded_grid_facts& facts;
  const fft_geometry& geometry;
  const std::string& saved_spectrum;  // name of a spectrum that is kept; may be blank
  filter_parameters& parameters;
  TransformLog& log;
  platform::LargeArray<float>& array;  // of geometry.fftwords() elements
  PowerSpectrum power{};
  std::filesystem::path spectrum{};          // file that holds the spectrum of this run
  platform::ScratchFile spectrum_scratch{};  // the same, where it goes with the run
  std::optional<gradient_work_grids> work{};
};

// Brings the spectrum into the array, applies the filter, and transforms back.
// Gives the rows of the result, of the width of the padded grid; they are taken from the array or
// from the padded file, so that `run` must outlive them. Scratch files that the rest of the run
// does not read are gone afterwards. Throws IoError, std::bad_alloc.
padded_row_source run_memory_road(memory_run& run);

}  // namespace velmorankite
