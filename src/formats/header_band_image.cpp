// The ".hdr" file beside BIL and BIP images. They are described, not converted.
// SPDX-License-Identifier: MIT
#include <string>

#include "formats/header_status.h"
#include "formats/header_text.h"
#include "formats/header_text_readers.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

constexpr std::size_t image_line_length = 256;

struct image_name {
  std::string_view name;
  Status status;  // where the value is no number
  std::int32_t grid_ints::*integer = nullptr;
  double grid_reals::*real = nullptr;
  double grid_reals::*second = nullptr;  // takes the same value
};

constexpr image_name image_names[] = {
    {"NCOLS", image_ncols_unread, &grid_ints::x_count},
    {"NROWS", image_nrows_unread, &grid_ints::y_count},
    {"NBANDS", image_nbands_unread, &grid_ints::band_count},
    {"NBITS", image_nbits_unread, &grid_ints::element_code},
    {"SKIPBYTES", image_skipbytes_unread, &grid_ints::data_offset},
    {"CELLSIZE", image_cellsize_unread, nullptr, &grid_reals::x_cell, &grid_reals::y_cell},
    {"XDIM", image_cellsize_unread, nullptr, &grid_reals::x_cell},
    {"YDIM", image_ydim_unread, nullptr, &grid_reals::y_cell},
    {"ULXMAP", image_ulxmap_unread, nullptr, &grid_reals::x_min},
    {"ULYMAP", image_ulymap_unread, nullptr, &grid_reals::y_max},
};

bool read_value(const image_name& row, std::string_view value, grid_description& grid) {
  if (row.integer != nullptr) {
    return read_number(value, grid.ints.*row.integer);
  }
  if (!read_number(value, grid.reals.*row.real)) {
    return false;
  }
  if (row.second != nullptr) {
    grid.reals.*row.second = grid.reals.*row.real;
  }
  return true;
}

Status check(const grid_description& grid) {
  const grid_ints& ints = grid.ints;
  if (ints.x_count < 1 || ints.y_count < 1) {
    return image_counts_unsound;
  }
  if (!(grid.reals.x_cell > 0.0) || !(grid.reals.y_cell > 0.0)) {
    return image_cells_unsound;
  }
  if (ints.band_count < 1) {
    return image_bands_unsound;
  }
  return ints.data_offset < 0 ? image_offset_unsound : success;
}

void finish(bool from_top, grid_description& grid) {
  const grid_ints& ints = grid.ints;
  grid_reals& reals = grid.reals;
  reals.x_max = reals.x_min + (ints.x_count - 1.0) * reals.x_cell;
  if (from_top) {
    reals.y_min = reals.y_max - (ints.y_count - 1.0) * reals.y_cell;
  } else {
    reals.y_max = reals.y_min + (ints.y_count - 1.0) * reals.y_cell;
  }
  for (double* value : {&reals.z_min, &reals.z_max, &reals.z_mid, &reals.z_spread}) {
    *value = reals.dummy_value;
  }
}

}  // namespace

Status read_band_image_header(header_source& source, grid_description& grid, grid_texts&) {
  constexpr std::int32_t bits_where_none_are_given = 8;
  grid.ints.element_code = bits_where_none_are_given;
  grid.ints.element_kind = kind_signed;
  grid.reals.y_min = 1.0;
  HeaderLines lines(*source.text, image_line_length);
  bool from_top = false;
  while (lines.next()) {
    if (lines.blank() || lines.line().starts_with(';') || lines.line().starts_with('#')) {
      continue;
    }
    for (const image_name& row : image_names) {
      if (!lines.line().starts_with(row.name)) {
        continue;
      }
      const std::string_view value = trimmed_text(behind_blank(lines.line()));
      if (!read_value(row, value.substr(0, value.find(' ')), grid)) {
        return row.status;
      }
      from_top = from_top || row.real == &grid_reals::y_max;
      break;
    }
  }
  const Status status = check(grid);
  if (!status.failed()) {
    finish(from_top, grid);
  }
  return status;
}

}  // namespace velmorankite
