// SPDX-License-Identifier: MIT
#include "transform/memory_road.h"

#include <cmath>

#include "grid/scratch_names.h"
#include "transform/derived_maps.h"
#include "transform/fft_grid.h"
#include "transform/fft_response.h"
#include "transform/filter_index.h"
#include "transform/log_line.h"

namespace velmorankite {
namespace {

bool is_single_response(const memory_run& run) {
  return gradient_passes_of(run.parameters) == gradient_passes::none;
}

void compute_spectrum(memory_run& run) {
  const fft_geometry& geometry = run.geometry;
  run.log.line(
      log_line("Initialise the values for the FFT arrays ", geometry.fftnx, geometry.fftny));
  run.log.line("Copy input grid data into FFT arrays");
  run.log.line("Calculate forward FFT");
  run.log.pause();
  transform_padded(run.padded, geometry, run.request.keeps_plane() ? run.facts.average : 0.0F,
                   run.array.span());
  if (is_single_response(run)) {
    run.padded.close();
    run.padded_scratch.remove();  // what the system held of it is at hand for the spectrum
  }
}

// Later passes of this run and later runs read the spectrum again. Where it has no name of its own
// the file is held from the start, so that two runs in one folder never share one.
void save_spectrum(memory_run& run) {
  run.log.line("save the FFT coefficients");
  run.spectrum = run.saved_spectrum;
  if (run.request.reuse == 0 || run.saved_spectrum.empty()) {
    run.spectrum_scratch = new_scratch("~grdReUseFFT");
    run.spectrum = run.spectrum_scratch.path();
  }
  save_fft_grid(run.spectrum, lattice_of(run.input.grid), run.geometry, run.array.span());
  if (run.request.reuse != 0) {
    run.spectrum_scratch.keep();
  }
  run.log.line("FFT coefficient grid file saved");
}

void provide_spectrum(memory_run& run) {
  const auto log = [&run](std::string_view line) { run.log.line(line); };
  if (run.request.reuse > 0 && reuse_fft_grid(run.saved_spectrum, lattice_of(run.input.grid),
                                              run.geometry, run.array.span(), log)) {
    run.spectrum = run.saved_spectrum;
    return;
  }
  compute_spectrum(run);
  save_spectrum(run);
}

// A filter of one response: the result stays in the array.
padded_row_source single_response(memory_run& run) {
  run.log.line("call fftrsp");
  fftrsp(true, run.geometry.size(), run.parameters.FilterNo, run.parameters, run.array.span(),
         run.power);
  run.spectrum_scratch.remove();
  run.log.line("compute inverse fft");
  run.log.pause();
  transform_array(run.array.span(), run.geometry, -1);
  // By its definition the vertical integral is divided by the cell's area to its order as well; the
  // response alone is in map units already.
  const double divisor = run.request.filter == filter_vertical_integral
                             ? std::pow(run.parameters.CellX * run.parameters.CellY,
                                        static_cast<double>(run.parameters.Par1))
                             : 1.0;
  return [&run, divisor](std::int32_t row, std::span<float> cells) {
    read_window_row(run.array.span(), run.geometry, row, cells);
    if (divisor != 1.0) {
      for (float& cell : cells) {
        cell = static_cast<float>(static_cast<double>(cell) / divisor);
      }
    }
  };
}

// A filter of three grids: the map of them is written over the padded grid.
padded_row_source gradient_map(memory_run& run) {
  const fft_stage stage{lattice_of(run.input.grid), run.geometry, run.array.span(), run.power};
  platform::BinaryFile spectrum = prepare_gradient_spectrum(stage, run.parameters);
  if (!spectrum.is_open()) {
    spectrum = platform::BinaryFile(run.spectrum, platform::open_mode::read);
  }
  run.work.emplace(make_work_grids(stage));
  FFTGRAD3(stage, run.parameters, run.input_rows, spectrum, *run.work);
  write_derived_map(derived_map_of(run.parameters), *run.work, run.array.span(), run.geometry,
                    run.padded);
  if (run.request.filter == filter_total_gradient && run.parameters.Opt2 == 1) {
    integrate_padded_grid(stage, run.parameters, run.padded);
  }
  return [&run](std::int32_t row, std::span<float> cells) { run.padded.read(row, cells); };
}

}  // namespace

padded_row_source run_memory_road(memory_run& run) {
  run.log.line(
      log_line("Perform FFT : ", run.request.fft_mode, run.geometry.fftnx, run.geometry.fftny));
  provide_spectrum(run);
  return is_single_response(run) ? single_response(run) : gradient_map(run);
}

}  // namespace velmorankite
