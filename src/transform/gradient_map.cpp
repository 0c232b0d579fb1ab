// SPDX-License-Identifier: MIT
#include <cstddef>

#include "transform/derived_maps.h"
#include "transform/filter_index.h"
#include "transform/products.h"
#include "transform/run_output.h"

namespace velmorankite {
namespace {

// Writes the map over the padded grid, puts it out, and gives the grids it was made of.
gradient_work_grids put_out_map(transform_run& run, const filter_parameters& parameters) {
  const fft_stage stage = run.stage();
  platform::BinaryFile spectrum = prepare_gradient_spectrum(stage, parameters);
  if (!spectrum.is_open()) {
    spectrum = platform::BinaryFile(run.spectrum, platform::open_mode::read);
  }
  gradient_work_grids work = make_work_grids(stage);
  FFTGRAD3(stage, parameters, run.input_rows, spectrum, work);
  write_derived_map(derived_map_of(parameters), work, run.array.span(), run.geometry, run.padded);
  if (parameters.FilterNo == filter_total_gradient && parameters.Opt2 == 1) {
    integrate_padded_grid(stage, parameters, run.padded);
  }
  put_out(run, [&run](std::int32_t row, std::span<float> cells) { run.padded.read(row, cells); });
  return work;
}

}  // namespace

Status make_gradient_map(transform_run& run, filter_parameters parameters) {
  (void)put_out_map(run, parameters);
  return success;
}

Status make_field_components(transform_run& run, filter_parameters parameters) {
  const gradient_work_grids work = put_out_map(run, parameters);
  const auto names = component_names(run.request.out_grid);
  for (std::size_t i = 0; i < names.size(); ++i) {
    (void)put_out_grid(run, names[i], [&](std::int32_t row, std::span<float> cells) {
      work.grids[i].read(row, cells);
    });
  }
  return success;
}

}  // namespace velmorankite
