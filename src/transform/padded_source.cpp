// SPDX-License-Identifier: MIT
#include "transform/padded_source.h"

#include "condition/detrend.h"
#include "condition/padded_grid.h"
#include "formats/describe_grid.h"
#include "grid/dummy.h"
#include "grid/scratch_names.h"
#include "grid/standard_header.h"
#include "platform/file_tests.h"
#include "transform/log_line.h"
#include "transform/transform_status.h"

namespace velmorankite {
namespace {

std::string_view sense_line(std::int32_t storage_sense) {
  return storage_sense == sense_bottom_up
             ? "Storage Sense :  1 (first element at bottom left, stored by row. Supported by "
               "Oasis)"
             : "Storage Sense : -2 (first element at top left, stored by row. Not supported by "
               "Oasis)";
}

// Whether a saved padded grid has the lattice, the sense and the detrending that this run wants.
bool fits(const grid_description& saved, const transform_request& request,
          const transform_input& input, const fft_geometry& geometry) {
  const grid_reals& mine = saved.reals;
  const grid_reals& wanted = input.grid.reals;
  const std::int32_t made_with = saved.ints.band_select;  // the process flag of the header
  const bool mode_fits = (made_with >= detrend_keeps_plane) == request.keeps_plane();
  const bool facts_known = mine.z_min >= static_cast<double>(valid_threshold) &&
                           mine.z_max >= static_cast<double>(valid_threshold) &&
                           mine.z_mid >= static_cast<double>(valid_threshold) &&
                           mine.z_spread >= static_cast<double>(valid_threshold);
  return saved.ints.x_count == geometry.nxp && saved.ints.y_count == geometry.nyp &&
         saved.ints.storage_sense == input.grid.ints.storage_sense &&
         agree(mine.x_cell, wanted.x_cell) && agree(mine.y_cell, wanted.y_cell) &&
         agree(mine.x_min + geometry.pad * mine.x_cell, wanted.x_min) &&
         agree(mine.y_min + geometry.pad * mine.y_cell, wanted.y_min) && mode_fits && facts_known;
}

bool is_consistent(const std::string& saved, const transform_request& request,
                   const transform_input& input, const fft_geometry& geometry, TransformLog& log) {
  const std::int64_t wanted = 4 * std::int64_t{geometry.nxp} * geometry.nyp + standard_header_bytes;
  const std::int64_t there = platform::bytes_of_file(saved);
  if (there != wanted) {
    log.line(log_line(
        "The exisitng padded grid file size is inconsistent with definitions: ", there, wanted));
    return false;
  }
  grid_description grid;
  grid_texts texts;
  return !GRDRDH(saved, grid, texts).failed() && fits(grid, request, input, geometry);
}

// True if the scratch file now is a copy of a saved padded grid that fits.
bool reuse_saved(const transform_request& request, const transform_input& input,
                 const fft_geometry& geometry, const std::string& saved,
                 const std::filesystem::path& scratch, TransformLog& log,
                 padded_grid_facts& facts) {
  if (saved.empty()) {
    return false;
  }
  log.line("Check padded grid file : " + saved);
  if (!platform::file_exists(saved)) {
    return false;
  }
  if (!is_consistent(saved, request, input, geometry, log)) {
    log.line(
        "The existing padded grid file inconsistent with definitions, so it will be regenerated");
    platform::delete_file(saved);
    return false;
  }
  log.line("Read the existing padded grid file");
  grid_description grid;
  grid_texts texts;
  if (!platform::copy_whole_file(saved, scratch) ||
      GRDRDH(scratch.string(), grid, texts).failed()) {
    platform::delete_file(saved);
    return false;
  }
  log.line(sense_line(grid.ints.storage_sense));
  facts.trend = {static_cast<float>(grid.reals.z_mid), static_cast<float>(grid.reals.z_min),
                 static_cast<float>(grid.reals.z_max)};
  facts.average = static_cast<float>(grid.reals.z_spread);
  return true;
}

// For later runs, which make their own where it fails. Without a name it goes under the first free
// scratch name.
void keep_padded(const std::filesystem::path& scratch, std::filesystem::path target) {
  platform::ScratchFile unnamed;
  if (target.empty()) {
    unnamed = new_scratch("~grdReUseExt");
    target = unnamed.path();
  }
  if (platform::copy_whole_file(scratch, target)) {
    unnamed.keep();
  }
}

pad_request pad_request_of(const transform_request& request, const fft_geometry& geometry,
                           const padded_grid_facts& facts) {
  pad_request pad;
  pad.taper = request.fft_mode == fft_mode_memory;
  pad.taper_width = request.pad_width;
  pad.column_pad = geometry.pad;
  pad.row_pad = geometry.pad;
  pad.x_count = geometry.nxp;
  pad.y_count = geometry.nyp;
  pad.average = facts.average;
  pad.detrend_mode = request.detrend_mode();
  pad.trend = facts.trend;
  return pad;
}

}  // namespace

Status provide_padded_grid(const transform_request& request, const transform_input& input,
                           const fft_geometry& geometry, const std::string& saved,
                           const std::filesystem::path& scratch, TransformLog& log,
                           std::span<float> lent, padded_grid_facts& facts) {
  if (request.reuse > 0 && reuse_saved(request, input, geometry, saved, scratch, log, facts)) {
    return success;
  }
  const std::int32_t sense = input.grid.ints.storage_sense;
  log.line(log_line("Generate padded grid file : ", geometry.columns, geometry.rows, sense));
  log.line(sense_line(sense));
  const fit_scope scope =
      request.detrend_scope() == 1 ? fit_scope::all_cells : fit_scope::line_ends;
  value_range range;
  // A grid without a valid cell has no plane, and the padding fails on it too.
  const Status fitted = GRID_DETREND_PLANE(scope, input.path, "", facts.average, facts.trend);
  pad_request pad = pad_request_of(request, geometry, facts);
  pad.lent = lent;
  if (fitted.failed() || GRDPAD(input.path, scratch, pad, range).failed()) {
    log.line("Generation of the padded grid file failed");
    return transform_padding_failed;
  }
  if (request.reuse > 0) {
    keep_padded(scratch, saved);
  }
  log.line(
      log_line("Padded grid data range,average : ", range.smallest, range.largest, facts.average));
  return success;
}

}  // namespace velmorankite
