// SPDX-License-Identifier: MIT
#include "transform/transform_driver.h"

#include <algorithm>
#include <array>
#include <exception>
#include <limits>
#include <new>
#include <string>

#include "condition/hole_filling.h"
#include "formats/convert_grid.h"
#include "formats/status_table.h"
#include "grid/scratch_names.h"
#include "platform/file_tests.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/large_array.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"
#include "transform/convolution_road.h"
#include "transform/filter_index.h"
#include "transform/log_line.h"
#include "transform/memory_road.h"
#include "transform/output_grid.h"
#include "transform/padded_source.h"
#include "transform/run_names.h"
#include "transform/transform_checks.h"

namespace velmorankite {
namespace {

// One run: what is made once and used to its end.
struct transform_run {
  const transform_request& request;
  TransformLog& log;
  filter_parameters& parameters;
  transform_range& range;
  transform_input input{};
  platform::ScratchFile converted{};  // holds the input where it had to be converted
  reuse_names saved{};                // blank names where nothing is saved under one
  fft_geometry geometry{};
  padded_grid_facts facts{};
  bool arrays_planned = false;          // from here on the log tells of their release
  platform::LargeArray<float> array{};  // FFT road
};

Status fill_holes(transform_run& run) {
  run.range = {0.0F, 0.0F};
  const hole_fill fill{run.input.path, run.input.grid,
                       platform::without_padding(run.request.out_grid),
                       run.request.int_par[1] == 0 ? fill_road::sweeps : fill_road::levels};
  float minimum = 0.0F;
  float maximum = 0.0F;
  std::int64_t filled = 0;
  const Status status = fill_grid(fill, minimum, maximum, filled);
  if (status == fill_input_unopened) {
    run.log.line("Failed to open the input grid file");
    return transform_input_unopened;
  }
  if (status.failed()) {
    return transform_fill_failed;
  }
  run.log.line(log_line("Number of cells filled: ", filled));
  constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
  return {static_cast<std::int32_t>(std::min(filled, most))};
}

Status refuse_padded_grid(const transform_run& run) {
  const Status status = run.request.fft_mode == fft_mode_convolution ? transform_row_memory
                                                                     : transform_row_memory_fft;
  run.log.line(log_line("Allocation of padded grid arrays failed : ", status.code));
  return status;
}

// Whether the current folder, where its scratch file stands, can take the padded grid.
bool has_room(const fft_geometry& g) {
  return std::int64_t{sizeof(float)} * g.nxp * g.nyp + standard_header_bytes <=
         platform::free_bytes(".");
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

output_plan plan_output(const transform_run& run, const RowFile& input) {
  output_plan plan;
  plan.out_grid = platform::without_padding(run.request.out_grid);
  plan.input = &input;
  plan.input_grid = run.input.grid;
  plan.pad = run.geometry.pad;
  plan.add_plane = run.request.detrend_mode() == 1;
  plan.trend = run.facts.trend;
  return plan;
}

void put_out(transform_run& run, const output_plan& plan, const padded_row_source& rows) {
  run.log.line("Output the transformed grid");
  const value_range range = GRDOUT(plan, run.geometry.nxp, rows);
  run.range = {range.smallest, range.largest};
  run.log.line(log_line("Transformed range : ", run.range.OutMin, run.range.OutMax));
}

// The three components of the field of VRMI, each as a grid beside the output.
void put_out_components(transform_run& run, memory_run& road, output_plan plan) {
  const auto names = component_names(run.request.out_grid);
  for (std::size_t i = 0; i < names.size(); ++i) {
    plan.out_grid = names[i];
    const RowFile& component = road.work->grids[i];
    (void)GRDOUT(plan, run.geometry.nxp,
                 [&](std::int32_t row, std::span<float> cells) { component.read(row, cells); });
  }
}

Status filter_in_memory(transform_run& run, const RowFile& input, platform::ScratchFile& scratch,
                        RowFile& padded) {
  memory_run road{run.request,  run.input,          input,          scratch, padded,   run.facts,
                  run.geometry, run.saved.spectrum, run.parameters, run.log, run.array};
  const padded_row_source rows = run_memory_road(road);
  const output_plan plan = plan_output(run, input);
  put_out(run, plan, rows);
  if (run.request.filter == filter_vrmi) {
    put_out_components(run, road, plan);
  }
  if (run.request.power_file) {
    const run_names names = name_run(run.request);
    write_power_file(power_file_name(names.power_stem, run.parameters), road.power,
                     run.parameters.CellX);
  }
  return success;
}

Status filter_by_convolution(transform_run& run, const RowFile& input, RowFile& padded) {
  const Status status = run_convolution_road(run.request, padded, run.parameters, run.log);
  if (status.failed()) {
    return status;
  }
  put_out(run, plan_output(run, input),
          [&](std::int32_t row, std::span<float> cells) { padded.read(row, cells); });
  return success;
}

Status filter_padded(transform_run& run) {
  platform::ScratchFile scratch = new_scratch("~grdext");
  const Status padding = provide_padded_grid(run.request, run.input, run.geometry, run.saved.padded,
                                             scratch.path(), run.log, run.array.span(), run.facts);
  if (padding.failed()) {
    return padding;
  }
  RowFile input;
  try {
    input = {platform::BinaryFile(run.input.path, platform::open_mode::read),
             layout_of(run.input.grid)};
  } catch (const platform::IoError& failure) {
    run.log.line("Failed to open the input grid file");
    run.log.line(failure.what());
    return transform_input_unopened;
  }
  RowFile padded(platform::BinaryFile(scratch.path(), platform::open_mode::read_write),
                 {run.input.grid.ints.storage_sense, run.geometry.nxp, run.geometry.nyp});
  return run.request.fft_mode == fft_mode_convolution
             ? filter_by_convolution(run, input, padded)
             : filter_in_memory(run, input, scratch, padded);
}

Status filter_grid(transform_run& run) {
  run.saved = name_reuse(run.request);
  // Whatever comes of it, saved grids go with a run that neither uses nor keeps them.
  std::array<platform::ScratchFile, 2> going;
  if (run.request.reuse == 0) {
    going = {platform::ScratchFile(run.saved.padded), platform::ScratchFile(run.saved.spectrum)};
  }
  Status status = plan(run);
  if (!status.failed() && run.request.fft_mode != fft_mode_convolution) {
    status = allocate_array(run);
  }
  if (status.failed()) {
    return status;
  }
  return has_room(run.geometry) ? filter_padded(run) : refuse_padded_grid(run);
}

Status run_filter(transform_run& run) {
  if (const Status status = check_request(run.request, run.log, run.parameters); status.failed()) {
    return status;
  }
  run.input = {std::string(platform::without_padding(run.request.in_grid)), run.request.grid};
  if (!is_read_in_place(run.input.grid)) {
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
  }
  return run.request.filter == filter_hole_fill ? fill_holes(run) : filter_grid(run);
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
  filter_parameters parameters;
  transform_run run{request, log, parameters, range};
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
