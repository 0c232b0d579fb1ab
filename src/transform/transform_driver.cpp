// SPDX-License-Identifier: MIT
#include "transform/transform_driver.h"

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <new>
#include <string>

#include "formats/convert_grid.h"
#include "formats/status_table.h"
#include "grid/scratch_names.h"
#include "platform/file_tests.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"
#include "transform/filter_catalogue.h"
#include "transform/log_line.h"
#include "transform/spectrum_source.h"
#include "transform/transform_checks.h"
#include "transform/transform_run.h"

namespace velmorankite {
namespace {

Status refuse_padded_grid(const transform_run& run) {
  const Status status = run.request.fft_mode == fft_mode_convolution ? transform_row_memory
                                                                     : transform_row_memory_fft;
  run.log.line(log_line("Allocation of padded grid arrays failed : ", status.code));
  return status;
}

std::int64_t padded_bytes(const fft_geometry& g) {
  return std::int64_t{sizeof(float)} * g.nxp * g.nyp + standard_header_bytes;
}

Status plan(transform_run& run) {
  const grid_ints& ints = run.input.grid.ints;
  if (plan_fft(ints.x_count, ints.y_count, run.request.pad_width, run.geometry).failed()) {
    return refuse_padded_grid(run);
  }
  const fft_geometry& g = run.geometry;
  if (run.request.fft_mode != fft_mode_convolution) {
    run.log.line(log_line("FFT array size: ", g.fftnx, g.fftny));
    run.log.line(log_line("FFT Padding Offsest: ", g.padoffx, g.padoffy));
    run.log.line(log_line("FFT Origin Offsest: ", g.origx, g.origy));
  }
  run.log.line(log_line("Allocate padded grid arrays : ", g.nxp, g.nyp));
  run.arrays_planned = true;
  return success;
}

// Taken before the padded grid is made, so that a run too large for the machine stops early.
Status allocate_array(transform_run& run) {
  const fft_geometry& g = run.geometry;
  run.log.line(log_line("Allocate FFT arrays : ", g.fftnx, g.fftny));
  try {
    run.array = platform::LargeArray<float>(g.fftwords());
  } catch (const std::bad_alloc&) {
    run.log.line(
        log_line("There was a problem allocating the work array: ", transform_array_memory.code));
    return transform_array_memory;
  }
  run.log.line("Initialise the allocated FFT array: ");
  run.log.pause();
  return success;
}

Status open_input(transform_run& run) {
  try {
    run.input_rows = {platform::BinaryFile(run.input.path, platform::open_mode::read),
                      layout_of(run.input.grid)};
    return success;
  } catch (const platform::IoError& failure) {
    run.log.line("Failed to open the input grid file");
    run.log.line(failure.what());
    return transform_input_unopened;
  }
}

Status make_padded(transform_run& run) {
  run.padded_scratch = new_scratch("~grdext");
  const std::filesystem::path& path = run.padded_scratch.path();
  const Status padding = provide_padded_grid(run.request, run.input, run.geometry, run.saved.padded,
                                             path, run.log, run.array.span(), run.facts);
  if (padding.failed()) {
    return padding;
  }
  if (const Status status = open_input(run); status.failed()) {
    return status;
  }
  run.padded = {platform::BinaryFile(path, platform::open_mode::read_write),
                {run.input.grid.ints.storage_sense, run.geometry.nxp, run.geometry.nyp}};
  return success;
}

Status provide_padded(transform_run& run) {
  run.saved = name_reuse(run.request);
  // Whatever comes of it, saved grids go with a run that neither uses nor keeps them.
  if (run.request.reuse == 0) {
    run.going = {platform::ScratchFile(run.saved.padded),
                 platform::ScratchFile(run.saved.spectrum)};
  }
  Status status = plan(run);
  if (!status.failed() && run.request.fft_mode == fft_mode_memory) {
    status = allocate_array(run);
  }
  if (status.failed()) {
    return status;
  }
  // The scratch file of the padded grid stands in the current folder.
  return platform::has_room(".", padded_bytes(run.geometry)) ? make_padded(run)
                                                             : refuse_padded_grid(run);
}

Status provide(transform_run& run, need from) {
  if (from == need::input) {
    return success;
  }
  const Status status = provide_padded(run);
  if (!status.failed() && from != need::padded_grid) {
    provide_spectrum(run, from == need::spectrum_and_padded_grid);
  }
  return status;
}

Status convert(transform_run& run) {
  run.input = {std::string(platform::without_padding(run.request.in_grid)), run.request.grid};
  if (is_read_in_place(run.input.grid)) {
    return success;
  }
  run.log.line("Convert the input grid file to standard Geosoft");
  const Status converted =
      convert_to_scratch(run.input.path, "~grdcnv", run.input.grid, run.converted);
  if (converted.failed()) {
    run.log.line("Failed to read the input grid file");
    run.log.line(
        status_words(formats_statuses, "GRDRDG", converted, run.input.grid.ints.format_code));
    return transform_conversion_failed;
  }
  run.input.path = run.converted.path().string();
  return success;
}

Status run_filter(transform_run& run) {
  filter_parameters parameters;
  if (const Status status = check_request(run.request, run.log, parameters); status.failed()) {
    return status;
  }
  if (const Status status = convert(run); status.failed()) {
    return status;
  }
  const product& wanted = use_of(parameters).on(run.request.fft_mode);
  if (const Status status = provide(run, wanted.from); status.failed()) {
    return status;
  }
  const Status made = wanted.make(run, parameters);
  const bool has_power =
      wanted.from == need::spectrum || wanted.from == need::spectrum_and_padded_grid;
  if (!made.failed() && has_power && run.request.power_file) {
    write_power_file(power_file_name(name_run(run.request).power_stem, parameters), run.power,
                     parameters.CellX);
  }
  return made;
}

void close_log(const transform_run& run) {
  if (run.arrays_planned) {
    run.log.line("Deallocate");
  }
  run.log.line("Transform complete");
  run.log.pause();
}

}  // namespace

Status TRSD(const transform_request& request, transform_range& range) {
  range.OutMax = 1.0F;
  const std::string log_name = name_run(request).log;
  // The only result that is there before the others are checked, so that it can tell of them.
  platform::keep_apart(inputs_of(request), {{log_name, "the log of the run"}});
  TransformLog log(log_name);
  log.line("Transform log file");
  transform_run run{request, log, range};
  try {
    const Status status = run_filter(run);
    close_log(run);
    return status;
  } catch (const std::exception& failure) {
    log.line(failure.what());
    close_log(run);
    throw;
  }
}

}  // namespace velmorankite
