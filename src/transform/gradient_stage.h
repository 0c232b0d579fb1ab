// Three grids from one spectrum: the derivatives of a field, or its components.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <span>

#include "grid/grid_rows.h"
#include "grid/lattice.h"
#include "platform/binary_file.h"
#include "transform/fft_array.h"
#include "transform/filter_parameters.h"
#include "transform/power_spectrum.h"

namespace velmorankite {

// The array of a run on the FFT road, as its stages work on it.
struct fft_stage {
  Lattice lattice;  // of the input grid
  fft_geometry geometry;
  std::span<float> array;
  PowerSpectrum& power;  // out: of the last response
};

// Which three grids a filter needs: of derivatives along X, Y and down, or of the field's
// components along X, Y and down.
enum class gradient_passes : std::uint8_t {
  none,
  derivatives,
  euler_derivatives,  // all three kept, the last one without its mean
  components,         // all without their mean
  kept_components     // and all three kept
};

// By the filter's index and its options in the parameter set.
[[nodiscard]] gradient_passes gradient_passes_of(const filter_parameters& parameters);

// The work grids: grids of nxp x nyp cells, sense 1, gone when they are closed. The third is only
// written where the passes keep it; it is else left in the array.
struct gradient_work_grids {
  std::array<RowFile, 3> grids;
};

// Makes the three empty work grids of a run. Throws IoError.
[[nodiscard]] gradient_work_grids make_work_grids(const fft_stage& stage);

// Two filters take their derivatives or components of a spectrum that is transformed first: the
// total gradient of the vertical integral of the integrated one, VRMI with a thickness that of a
// layer. Transforms the array and gives the file that later passes read, in the layout of a saved
// FFT grid; a closed file for the other filters, whose passes read the saved spectrum itself.
// Throws IoError.
[[nodiscard]] platform::BinaryFile prepare_gradient_spectrum(const fft_stage& stage,
                                                             filter_parameters parameters);

// Makes the three grids: for each pass the response on the spectrum, the inverse transform, the
// mean over the valid cells of the input taken off where the passes ask for it, and the real parts
// written to the work grid.
//   parameters of the filter; HiCut acts in every pass.
//   input      the input grid, for its valid cells.
//   spectrum   file that the second and third pass read; the first takes the array as it is.
//   stage      the array holds the third grid at the end.
// Throws IoError.
void FFTGRAD3(const fft_stage& stage, filter_parameters parameters, const RowFile& input,
              const platform::BinaryFile& spectrum, gradient_work_grids& work);

// Replaces the rows of the padded grid by their vertical integral of order 1, cut at LoCut alone:
// the last stage of the total gradient where it is asked for. Throws IoError.
void integrate_padded_grid(const fft_stage& stage, filter_parameters parameters, RowFile& padded);

}  // namespace velmorankite
