// SPDX-License-Identifier: MIT
#include "transform/spectrum_source.h"

#include "grid/scratch_names.h"
#include "transform/fft_grid.h"
#include "transform/log_line.h"

namespace velmorankite {
namespace {

void compute_spectrum(transform_run& run, bool keeps_padded) {
  const fft_geometry& geometry = run.geometry;
  run.log.line(
      log_line("Initialise the values for the FFT arrays ", geometry.fftnx, geometry.fftny));
  run.log.line("Copy input grid data into FFT arrays");
  run.log.line("Calculate forward FFT");
  run.log.pause();
  transform_padded(run.padded, geometry, run.request.keeps_plane() ? run.facts.average : 0.0F,
                   run.array.span());
  if (!keeps_padded) {
    run.padded.close();
    run.padded_scratch.remove();  // what the system held of it is at hand for the spectrum
  }
}

// Later passes of this run and later runs read the spectrum again. Where it has no name of its own
// the file is held from the start, so that two runs in one folder never share one.
void save_spectrum(transform_run& run) {
  run.log.line("save the FFT coefficients");
  run.spectrum = run.saved.spectrum;
  if (run.request.reuse == 0 || run.saved.spectrum.empty()) {
    run.spectrum_scratch = new_scratch("~grdReUseFFT");
    run.spectrum = run.spectrum_scratch.path();
  }
  save_fft_grid(run.spectrum, lattice_of(run.input.grid), run.geometry, run.array.span());
  if (run.request.reuse != 0) {
    run.spectrum_scratch.keep();
  }
  run.log.line("FFT coefficient grid file saved");
}

}  // namespace

void provide_spectrum(transform_run& run, bool keeps_padded) {
  run.log.line(
      log_line("Perform FFT : ", run.request.fft_mode, run.geometry.fftnx, run.geometry.fftny));
  const auto log = [&run](std::string_view line) { run.log.line(line); };
  if (run.request.reuse > 0 && reuse_fft_grid(run.saved.spectrum, lattice_of(run.input.grid),
                                              run.geometry, run.array.span(), log)) {
    run.spectrum = run.saved.spectrum;
    return;
  }
  compute_spectrum(run, keeps_padded);
  save_spectrum(run);
}

}  // namespace velmorankite
