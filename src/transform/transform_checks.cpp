// SPDX-License-Identifier: MIT
#include "transform/transform_checks.h"

#include <filesystem>

#include "formats/companion_file.h"
#include "grid/cell_position.h"
#include "platform/padded_text.h"
#include "transform/filter_catalogue.h"
#include "transform/filter_index.h"
#include "transform/filter_traits.h"
#include "transform/log_line.h"
#include "transform/power_spectrum.h"
#include "transform/run_names.h"
#include "transform/transform_status.h"
#include "transform/trs_filter.h"

namespace velmorankite {
namespace {

Status check_names(const transform_request& request, TransformLog& log) {
  if (platform::without_padding(request.in_grid).empty()) {
    log.line("The input grid name has not been specified");
    return transform_arguments_invalid;
  }
  if (platform::without_padding(request.out_grid).empty()) {
    log.line("The output grid name has not been specified");
    return transform_arguments_invalid;
  }
  return success;
}

// What a run may write or delete under names of its own.
platform::named_files results_of(const transform_request& request,
                                 const filter_parameters& parameters) {
  const reuse_names saved = name_reuse(request);
  const run_names names = name_run(request);
  platform::named_files results{{platform::without_padding(request.out_grid), "the output grid"},
                                {names.log, "the log of the run"},
                                {saved.padded, "the saved padded grid"},
                                {saved.spectrum, "the saved spectrum"}};
  if (request.power_file) {
    results.push_back({power_file_name(names.power_stem, parameters), "the power spectrum"});
  }
  if (const auto side_grids = use_of(parameters).side_grids) {
    for (const std::filesystem::path& grid : side_grids(request.out_grid)) {
      results.push_back({grid, "a grid beside the output"});
    }
  }
  return results;
}

Status keep_files_apart(const transform_request& request, const filter_parameters& parameters,
                        TransformLog& log) {
  if (const auto clash =
          platform::find_clash(inputs_of(request), results_of(request, parameters))) {
    log.line(clash->reason);
    return transform_arguments_invalid;
  }
  return success;
}

Status check_grid(const transform_request& request, TransformLog& log) {
  const std::int32_t sense = request.grid.ints.storage_sense;
  if (sense != sense_bottom_up && sense != sense_top_down) {
    log.line(log_line("The grid storage sense is not supported: ", sense));
    return transform_arguments_invalid;
  }
  const double x_cell = request.grid.reals.x_cell;
  const double y_cell = request.grid.reals.y_cell;
  if (!(x_cell > 0.0) || !(y_cell > 0.0)) {
    log.line(log_line("The grid cell size is not valid: ", x_cell, y_cell));
    return transform_arguments_invalid;
  }
  return success;
}

// A product that the road does not have is refused, never replaced by another.
Status check_availability(const transform_request& request, TransformLog& log,
                          const filter_parameters& parameters) {
  const filter_use& use = use_of(parameters);
  if (use.on(request.fft_mode).make == nullptr) {
    const bool disk_alone = request.fft_mode < 0 && use.memory.make != nullptr;
    log.line(std::string("Not available in this version: ")
                 .append(disk_alone ? "the FFT on disk" : use.name));
    return transform_not_available;
  }
  if (request.fft_mode > fft_mode_memory) {
    log.line(log_line("The FFT mode is not supported: ", request.fft_mode));
    return transform_road_unknown;
  }
  return success;
}

Status check_padding(const transform_request& request, TransformLog& log) {
  const bool pads_nothing = request.filter == filter_hole_fill && request.int_par[1] >= 0;
  if (request.pad_width <= 0 && !pads_nothing) {
    log.line(log_line("The padding width is not valid: ", request.pad_width));
    return transform_padding_invalid;
  }
  return success;
}

// Loads the parameter set; what the catalogue has against the call is in the log.
Status load_filter(const transform_request& request, TransformLog& log,
                   filter_parameters& parameters) {
  const Status loaded =
      TRSFLT(request.filter, request.filter_width, request.detrend_mode(), request.fft_mode,
             request.hi_cut, request.lo_cut, request.azimuth, request.int_par, request.real_par,
             request.grid.reals.x_cell, request.grid.reals.y_cell, parameters,
             [&log](std::string_view line) { log.line(line); });
  const bool off_the_disk =
      request.fft_mode < 0 && (traits_of(request.filter).roads & road_disk) == 0;
  if (off_the_disk) {
    log.line(
        log_line("This filter is not supported for disk based FFT mode: ", request.filter_width));
  }
  if (loaded.failed() || off_the_disk) {
    log.line("There was a problem with the filter parameters");
    return transform_filter_refused;
  }
  return success;
}

}  // namespace

platform::named_files inputs_of(const transform_request& request) {
  return files_of_grid(platform::without_padding(request.in_grid), "the input grid",
                       request.grid.ints.format_code);
}

Status check_request(const transform_request& request, TransformLog& log,
                     filter_parameters& parameters) {
  if (const Status status = check_names(request, log); status.failed()) {
    return status;
  }
  log.line(log_line("Filter index : ", request.filter, request.fft_mode, request.detrend_mode(),
                    request.detrend_scope()));
  log.line(std::string("Output file: ").append(platform::without_padding(request.out_grid)));
  if (const Status status = check_grid(request, log); status.failed()) {
    return status;
  }
  if (const Status status = check_padding(request, log); status.failed()) {
    return status;
  }
  if (const Status status = load_filter(request, log, parameters); status.failed()) {
    return status;
  }
  if (const Status status = check_availability(request, log, parameters); status.failed()) {
    return status;
  }
  return keep_files_apart(request, parameters, log);
}

}  // namespace velmorankite
